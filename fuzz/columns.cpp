// fuzz/columns.cpp: lists with columns. Column codes are parsed as a simple parser does it; whatever is done to a list,
// with or without its widget, each cell and heading shows the text that a plain table of texts holds.
//
// Input: a list of steps, each a byte that selects it and a few bytes of arguments.

#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"
#include "page/guinodewatch.h"
#include "tests/support/pagewindow.h"

#include <map>
#include <memory>
#include <vector>

#include <QString>

namespace {

constexpr int kMaxSteps = 40;
constexpr int kMaxColumns = 1000; // further columns are ignored

sstring toText(QString const& text) { return sstring(reinterpret_cast<unsigned short const*>(text.utf16())); }

QString takeText(FuzzBytes& input)
{
    std::string const utf8 = input.text(input.below(24));
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    text.remove(QChar(u'\0'));
    return text;
}

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool isCodeAt(QString const& text, qsizetype at)
{
    return at + 1 < text.size() && text[at] == u'|' && isDigit(text[at + 1]);
}

struct Segment
{
    int column = 0;
    QString text;
    bool isNumbered = false;
};

/// Removes the first segment and returns it, in the simplest way.
Segment takeSegment(QString& text)
{
    Segment segment;
    qsizetype at = 0;
    segment.isNumbered = isCodeAt(text, 0);
    if (segment.isNumbered) {
        double number = 0; // with any number of digits
        for (at = 1; at < text.size() && isDigit(text[at]); ++at)
            number = number * 10 + (text[at].unicode() - u'0');
        segment.column = number > 2147483647.0 ? 2147483647 : static_cast<int>(number);
        at += at < text.size() && text[at] == u'|';
    }
    while (at < text.size() && !isCodeAt(text, at))
        segment.text += text[at++];
    text = text.mid(at);
    return segment;
}

std::vector<Segment> split(QString text)
{
    std::vector<Segment> segments;
    while (!text.isEmpty())
        segments.push_back(takeSegment(text));
    return segments;
}

void checkSplitting(QString const& text)
{
    sstring rest = toText(text);
    for (Segment const& segment : split(text)) {
        int column = -1;
        sstring const piece = guiHtmlControlFlex::popColumnText(&column, rest, rest);
        require(column == segment.column && piece == toText(segment.text), "column codes come apart differently");
    }
    require(rest.getLength() == 0, "column codes have more segments");
}

bool isColumn(int number) { return number >= 1 && number <= kMaxColumns; }

/// The texts of a row, or the headings.
using Texts = std::map<int, QString>;

/// A text for several columns; what names its column is literal.
void apply(Texts& texts, QString const& codes)
{
    for (Segment const& segment : split(codes)) {
        int const column = segment.isNumbered ? segment.column : 1;
        if (isColumn(column))
            texts[column] = segment.text;
    }
}

struct Row
{
    QString value;
    Texts cells;
    bool isChecked = false;
    int type = kFlexPlain;
};

class Session
{
public:
    explicit Session(FuzzBytes& input) : m_input(input)
    {
        char const* const kinds[] = {"flexlist", "checklist", "listview", "treeview"};
        m_page.widget->resize(300, 200);
        std::string const text = std::string("<object name=f classid=") + kinds[input.below(4)] + "></object>";
        m_page.root.setText(sstring(text.c_str()), sstring());
        m_flex = dynamic_cast<guiHtmlControlFlex*>(m_page.root.getNamed(sstring("f")));
        require(m_flex != nullptr, "there is no list");
        show();
    }

    void run()
    {
        for (int steps = 0; steps < kMaxSteps && !m_input.isEmpty(); ++steps)
            step();
        show();
        compare();
    }

private:
    bool isShown() const { return m_flex->getChildWidget() != nullptr; }
    void show()
    {
        m_page.root.updateLayout(1);
        require(isShown(), "there is no widget");
    }

    QString value() { return QStringLiteral("v%1").arg(m_input.below(6)); }
    Row* find(QString const& value)
    {
        for (Row& row : m_rows)
            if (row.value == value)
                return &row;
        return nullptr;
    }

    int column() { return static_cast<int>(m_input.below(4) == 0 ? m_input.word() : m_input.below(6)); }

    void step()
    {
        switch (m_input.below(11)) {
        case 0:
        case 1:
            return addRow();
        case 2:
        case 3:
            return setCell();
        case 4:
            return setHeading();
        case 5:
            return setWidth();
        case 6:
            return removeRow();
        case 7:
            return m_flex->destroyChildWidget();
        case 8:
            show();
            return compare();
        case 9:
            return check();
        default:
            return changeState();
        }
    }

    void addRow()
    {
        QString const key = value();
        QString const text = takeText(m_input);
        auto const type = static_cast<guiHtmlControlFlexEntryType>(m_input.below(3));
        checkSplitting(text);
        if (find(key))
            return; // which of two rows with the same key is found depends on where the second is stored
        m_flex->addItem(toText(key), toText(text), toText(value()), type);
        m_rows.push_back({key, {}, false, type});
        apply(m_rows.back().cells, text.isEmpty() ? key : text);
    }

    static void set(Texts& texts, int column, QString const& text)
    {
        if (isColumn(column))
            texts[column] = text;
    }

    void setCell()
    {
        QString const key = value();
        int const at = column();
        QString const text = takeText(m_input);
        m_flex->setItemText(toText(key), at, toText(text));
        if (Row* row = find(key))
            set(row->cells, at, text);
    }

    void setHeading()
    {
        int const at = column();
        QString const text = takeText(m_input);
        m_flex->setColumnText(at, toText(text));
        set(m_headings, at, text);
    }

    void setWidth()
    {
        int const at = column();
        m_flex->setColumnWidth(at, static_cast<int>(m_input.word()) - 100);
    }

    void removeRow()
    {
        QString const key = value();
        while (m_flex->findItem(istring(toText(key))))
            m_flex->removeItem(toText(key));
        std::erase_if(m_rows, [&](Row const& row) { return row.value == key; });
    }

    void check()
    {
        QString const key = value();
        bool const on = m_input.flag();
        m_flex->setItemChecked(toText(key), on);
        Row* row = find(key);
        if (!row || row->type == kFlexPlain)
            return;
        row->isChecked = on;
        for (Row& other : m_rows) // other radio rows may have been switched off
            if (row->type == kFlexRadio && other.type == kFlexRadio)
                other.isChecked = m_flex->isItemChecked(toText(other.value));
        require(row->type == kFlexRadio || m_flex->isItemChecked(toText(key)) == on,
                "a row is not checked as it was set");
    }

    void changeState()
    {
        sstring const key = toText(value());
        int const on = m_input.flag();
        switch (m_input.below(4)) {
        case 0:
            return m_flex->setItemSelected(key, on);
        case 1:
            return m_flex->setItemEnabled(key, on);
        case 2:
            return m_flex->setItemExpanded(key, on);
        default:
            return m_flex->setHeaderEnabled(on);
        }
    }

    void compare()
    {
        auto const* view = dynamic_cast<guiWidgetListView const*>(m_flex->getChildWidget());
        for (auto const& [column, text] : m_headings)
            require(view->heading(column - 1) == text, "a heading is not what was set");
        for (Row const& row : m_rows)
            compareRow(row);
        require(m_flex->getPreferredWidth() >= 0 && m_flex->getHeightEstimate(100) >= 0, "a negative size");
    }

    void compareRow(Row const& row)
    {
        guiHtmlControlFlexEntry const* entry = m_flex->findItem(istring(toText(row.value)));
        require(entry && entry->item, "a row is missing");
        for (auto const& [column, text] : row.cells)
            require(entry->item->text(column - 1) == text, "a cell is not what was set");
        require(row.type != kFlexCheckBox || entry->item->isOn() == row.isChecked, "a check box is not as it was set");
    }

    FuzzBytes& m_input;
    PageWindow m_page;
    guiHtmlControlFlex* m_flex = nullptr;
    std::vector<Row> m_rows;
    Texts m_headings;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    FuzzBytes input(bytes, size);
    Session(input).run();
    require(guiNodeWatch::count() == 0, "a watch of a node is left over");
    return 0;
}
