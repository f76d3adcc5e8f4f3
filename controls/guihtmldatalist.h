// controls/guihtmldatalist.h: the element `datalist`: the texts to which fields complete what is typed.
#pragma once

#include "page/guihtml.h"

#include <QStringList>

/// Is not seen; fields find it by its name. GUI thread.
class guiHtmlDataList : public guiHtml
{
public:
    explicit guiHtmlDataList(guiHtml* parent = nullptr) : guiHtml(parent) {}

    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    bool isInLine() const override { return false; }
    bool takesFormValue(ScriptValue&) const override { return false; }
    void paintTo(QPainter*, int, int, guiWidget*, QRegion const*) override {}

    QStringList const& getOptions() const { return m_options; }
    void addOption(QString const& option) { m_options << option; }

private:
    QStringList m_options;
};
