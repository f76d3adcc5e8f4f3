// controls/guihtmlsplitter.h: the elements `splitter` and `pane`: parts of a page side by side, or one below the other,
// with dividers between them that the user can move.
#pragma once

#include "controls/guihtmlcontrol.h"
#include "controls/guisplitsizes.h"

#include <QString>
#include <optional>
#include <vector>

class guiHtmlSplitter;
class guiWidgetDivider;

/// What stands between two panes. A child of guiHtmlSplitter. GUI thread.
class guiHtmlDivider : public guiHtmlControl
{
public:
    static constexpr int kSize = 7; ///< pixels across

    explicit guiHtmlDivider(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlDivider() override { destroyWidget(); }

    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int getPreferredWidth() override { return kSize; }
    int getHeightEstimate(unsigned long) override { return kSize; }
    bool keepsHeight() const override { return false; }
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    /// The user moves it by so many pixels; to its start; lets it go.
    void moveBy(int pixels);
    void reset();
    void letGo();
    /// Between panes that stand one below the other.
    bool isHorizontal() const;

private:
    guiHtmlSplitter* splitter() const;
    void destroyWidget();

    guiWidgetDivider* m_divider = nullptr; // owned
};

/// Its value is the sizes of its panes, "200,400". It keeps its content's place in the page like a control, but has no
/// widget of its own. GUI thread.
class guiHtmlSplitter : public guiHtmlControl
{
public:
    /// Pixels that a pane keeps in any case.
    static constexpr int kLeastPane = 16;

    explicit guiHtmlSplitter(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }

    void init(bool isVertical) { m_isVertical = isVertical; }
    bool isVertical() const { return m_isVertical; }
    /// A pane with the size that the page asks for along the splitter; unbound: it takes what the others leave.
    void addPane(guiSizeUnit unit, unsigned size);

    /// Moves the divider to or from its start. The user has done it: it is remembered for the next time that the page
    /// is shown.
    void moveDivider(guiHtmlDivider const* divider, int pixels);
    /// Whether user or script want other sizes than the page.
    bool hasOwnSizes() const { return !m_sizes.empty(); }
    void reset();
    /// Calls the handler if the sizes are others than it knows. Runs script.
    void letGo();

    int setText(sstring const& text, sstring const& directory) override;
    sstring getText() override;
    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    bool keepsHeight() const override { return false; }
    int calcDynamicLayout() override;
    void updateActiveWidths() override;
    void updateActiveHeights() override;
    void updateSpringyHeights() override;
    int getChildHeight(unsigned index, unsigned long width, unsigned long available) override;
    void onLabel() override {}

private:
    /// What the page asks for one pane.
    struct start
    {
        guiSizeUnit unit = kUnitUnbound;
        unsigned size = 0;
    };

    std::vector<guiHtml*> panes() const;
    std::vector<guiSplitPart> parts(int room) const;
    guiSplitPart startOf(std::size_t pane, int room) const;
    int roomFor(int inner) const;
    std::vector<int> shownSizes() const;
    std::optional<std::vector<int>> sizesOf(QString const& text) const;
    bool takeSizes(std::vector<int> const& sizes);
    sstring memoryKey();
    void remember();
    void recall();

    bool m_isVertical = false;
    bool m_hasRecalled = false;
    std::vector<start> m_starts; // of each pane
    std::vector<int> m_sizes;    // as user or script want them; empty: as the page does
    std::vector<int> m_heights;  // of panes one below the other, as laid out
    sstring m_told;              // the value of which script knows
};
