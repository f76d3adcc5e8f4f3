// fuzz/columns.cpp: lists with columns. Column codes come apart as a plain splitting says; and whatever is done to a
// list, with its widget there or not, each cell and heading shows what a plain table of texts holds.
//
// Input: a list of steps, each a byte that chooses it and a few bytes of arguments.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"
#include "page/guinodewatch.h"
#include "tests/support/pagewindow.h"

#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace {

constexpr int kMaxSteps = 40;
constexpr int kMaxColumns = 1000; // what stands in columns beyond is left out

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

/// Takes the first segment off, the plainest way.
Segment takeSegment(QString& text)
{
    Segment segment;
    qsizetype at = 0;
    segment.isNumbered = isCodeAt(text, 0);
    if (segment.isNumbered) {
        double number = 0; // of any length
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

/// The texts of one row, or the headings.
using Texts = std::map<int, QString>;

void apply(Texts& texts, QString const& codes, bool areHeadings)
{
    for (Segment const& segment : split(codes)) {
        int const column = segment.isNumbered ? segment.column : 1;
        if (isColumn(column) && !(areHeadings && segment.text.startsWith(u"WIDTH=")))
            texts[column] = segment.text;
    }
}

/// What is set while there is no widget is a text of codes, which is read when there is one: a code that an earlier
/// text leaves open takes in what follows.
struct Coded
{
    Texts texts;
    QString pending;
    bool areHeadings = false;

    void settle()
    {
        apply(texts, pending, areHeadings);
        pending.clear();
    }
};

struct Row
{
    QString value;
    Coded cells;
    bool isChecked = false;
    int type = kFlexPlain;
};

class Session
{
public:
    explicit Session(FuzzBytes& input) : input_(input)
    {
        char const* const kinds[] = {"flexlist", "checklist", "listview", "treeview"};
        page_.widget->resize(300, 200);
        std::string const text = std::string("<object name=f classid=") + kinds[input.below(4)] + "></object>";
        page_.root.setText(sstring(text.c_str()), sstring());
        flex_ = dynamic_cast<guiHtmlControlFlex*>(page_.root.getNamed(sstring("f")));
        require(flex_ != nullptr, "there is no list");
        show();
    }

    void run()
    {
        for (int steps = 0; steps < kMaxSteps && !input_.isEmpty(); ++steps)
            step();
        show();
        compare();
    }

private:
    bool isShown() const { return flex_->getChildWidget() != nullptr; }
    void show()
    {
        page_.root.updateLayout(1);
        require(isShown(), "there is no widget");
        settle();
    }

    /// Reads the codes if there is a widget.
    void settle()
    {
        if (!isShown())
            return;
        headings_.settle();
        for (Row& row : rows_)
            row.cells.settle();
    }

    QString value() { return QStringLiteral("v%1").arg(input_.below(6)); }
    Row* find(QString const& value)
    {
        for (Row& row : rows_)
            if (row.value == value)
                return &row;
        return nullptr;
    }

    int column() { return static_cast<int>(input_.below(4) == 0 ? input_.word() : input_.below(6)); }

    void step()
    {
        switch (input_.below(11)) {
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
            return flex_->destroyChildWidget();
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
        QString const text = takeText(input_);
        auto const type = static_cast<guiHtmlControlFlexEntryType>(input_.below(3));
        checkSplitting(text);
        if (find(key))
            return; // which of two rows with one key is found depends on the hole that the second fills
        flex_->addItem(toText(key), toText(text), toText(value()), type);
        rows_.push_back({key, {{}, text.isEmpty() ? key : text}, false, type});
        settle();
    }

    /// What is set while there is a widget stands as it is.
    void set(Coded& texts, int column, QString const& text)
    {
        if (!isColumn(column))
            return;
        if (isShown())
            texts.texts[column] = text;
        else
            texts.pending += QStringLiteral("|%1|").arg(column) + text;
    }

    void setCell()
    {
        QString const key = value();
        int const at = column();
        QString const text = takeText(input_);
        flex_->setItemText(toText(key), at, toText(text));
        if (Row* row = find(key))
            set(row->cells, at, text);
    }

    void setHeading()
    {
        int const at = column();
        QString const text = takeText(input_);
        flex_->setColumnText(at, toText(text));
        set(headings_, at, text);
    }

    void setWidth()
    {
        int const at = column();
        int const width = static_cast<int>(input_.word()) - 100;
        flex_->setColumnWidth(at, width);
        if (!isShown() && at >= 1)
            headings_.pending += QStringLiteral("|%1|WIDTH=%2").arg(at).arg(width);
    }

    void removeRow()
    {
        QString const key = value();
        while (flex_->findItem(istring(toText(key))))
            flex_->removeItem(toText(key));
        std::erase_if(rows_, [&](Row const& row) { return row.value == key; });
    }

    void check()
    {
        QString const key = value();
        bool const on = input_.flag();
        flex_->setItemChecked(toText(key), on);
        Row* row = find(key);
        if (!row || row->type == kFlexPlain)
            return;
        row->isChecked = on;
        for (Row& other : rows_) // radio rows beside it may have been switched off
            if (row->type == kFlexRadio && other.type == kFlexRadio)
                other.isChecked = flex_->isItemChecked(toText(other.value));
        require(row->type == kFlexRadio || flex_->isItemChecked(toText(key)) == on,
                "a row is not checked as it was set");
    }

    void changeState()
    {
        sstring const key = toText(value());
        int const on = input_.flag();
        switch (input_.below(4)) {
        case 0:
            return flex_->setItemSelected(key, on);
        case 1:
            return flex_->setItemEnabled(key, on);
        case 2:
            return flex_->setItemExpanded(key, on);
        default:
            return flex_->setHeaderEnabled(on);
        }
    }

    void compare()
    {
        auto const* view = dynamic_cast<guiWidgetListView const*>(flex_->getChildWidget());
        for (auto const& [column, text] : headings_.texts)
            require(view->headerItem()->text(column - 1) == text, "a heading is not what was set");
        for (Row const& row : rows_)
            compareRow(row);
        require(flex_->getPreferredWidth() >= 0 && flex_->getHeightEstimate(100) >= 0, "a negative size");
    }

    void compareRow(Row const& row)
    {
        guiHtmlControlFlexEntry const* entry = flex_->findItem(istring(toText(row.value)));
        require(entry && entry->item, "a row is missing");
        for (auto const& [column, text] : row.cells.texts)
            require(entry->item->text(column - 1) == text, "a cell is not what was set");
        require(row.type != kFlexCheckBox || entry->item->isOn() == row.isChecked, "a check box is not as it was set");
    }

    FuzzBytes& input_;
    PageWindow page_;
    guiHtmlControlFlex* flex_ = nullptr;
    std::vector<Row> rows_;
    Coded headings_{{}, {}, true};
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
