// controls/guihtmllabelkeys.h: the keys of a page's labels: Alt and the underlined letter do what a click on the label
// does.
#pragma once

#include "page/guihtml.h"

#include <memory>
#include <utility>
#include <vector>

class QShortcut;
class QWidget;

/// Is not seen; one for each page with such labels, at the end of the first label's parent. GUI thread.
class guiHtmlLabelKeys : public guiHtml
{
public:
    explicit guiHtmlLabelKeys(guiHtml* parent = nullptr) : guiHtml(parent) {}
    ~guiHtmlLabelKeys() override;

    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    bool isInLine() const override { return false; }
    void paintTo(QPainter*, int, int, guiWidget*, QRegion const*) override {}
    void setRect(guiRect* rect) override;
    void destroyChildWidget() override;

    /// `letter` in upper case; `target` as guiActOnLabel() takes it.
    void addKey(char16_t letter, sstring const& target) { m_keys.emplace_back(letter, target); }

private:
    void listen(QWidget* window);
    void stopListening();

    std::vector<std::pair<char16_t, sstring>> m_keys;
    std::vector<QPointer<QShortcut>> m_shortcuts; // owned, while the page is in a window, which may go first
};
