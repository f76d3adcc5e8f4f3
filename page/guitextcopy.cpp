// page/guitextcopy.cpp: see guitextcopy.h.
#include "page/guitextcopy.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-codes.h"
#include "page/guihtmltext.h"
#include "page/guilinkname.h"
#include "page/guivisibletext.h"

#include <algorithm>
#include <vector>

namespace {

/// The units of one run that are copied.
struct slice
{
    guiHtmlText* run = nullptr;
    unsigned from = 0;
    unsigned to = 0;
};

slice sliceOf(guiTextFlow const& flow, std::size_t i, guiFlowPlace from, guiFlowPlace to)
{
    guiHtmlText* run = flow[i].node;
    return {run, i == from.run ? from.unit : 0, i == to.run ? to.unit : run->editText().getLength()};
}

QString plainText(slice const& part)
{
    guiVisibleText const visible(part.run->editText().view());
    qsizetype const from = visible.toPosition(part.from);
    return visible.text().mid(from, visible.toPosition(part.to) - from);
}

void addGap(QString& text, guiFlowGap const& gap)
{
    if (gap.hasParagraph)
        text += u"\n\n";
    else if (gap.hasLine)
        text += u'\n';
    text += QString(static_cast<qsizetype>(gap.cells), u'\t');
    if (!gap.hasLine && gap.cells == 0 && gap.hasObject)
        text += u' ';
}

// ---- Markup ----

/// What of its formatting a part of a run has in markup.
struct dress
{
    QString link;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool mark = false;

    void take(QStringView code);
    void takeStyle(guiTextCode kind);
    QString around(QString const& text) const;
};

void dress::take(QStringView code)
{
    guiTextCode const kind = guiReadTextCode(code);
    if (kind == guiTextCode::kEndLink) {
        link.clear();
    } else if (kind == guiTextCode::kLink) {
        sstring target;
        sstring rest;
        guiSplitTarget(qtoss(code.mid(2).toString()), target, rest);
        link = sstoq(rest);
    } else {
        takeStyle(kind);
    }
}

void dress::takeStyle(guiTextCode kind)
{
    struct row
    {
        guiTextCode on;
        guiTextCode off;
        bool dress::*flag;
    };
    static constexpr row kRows[] = {
        {guiTextCode::kBold, guiTextCode::kEndBold, &dress::bold},
        {guiTextCode::kItalic, guiTextCode::kEndItalic, &dress::italic},
        {guiTextCode::kUnderline, guiTextCode::kEndUnderline, &dress::underline},
        {guiTextCode::kStrike, guiTextCode::kEndStrike, &dress::strike},
        {guiTextCode::kMark, guiTextCode::kEndMark, &dress::mark},
    };
    for (row const& each : kRows)
        if (kind == each.on || kind == each.off)
            this->*each.flag = kind == each.on;
}

QString dress::around(QString const& text) const
{
    QString markup = text.toHtmlEscaped();
    struct row
    {
        bool on;
        QString tag;
    };
    row const rows[] = {{bold, QStringLiteral("b")},
                        {italic, QStringLiteral("i")},
                        {underline, QStringLiteral("u")},
                        {strike, QStringLiteral("s")},
                        {mark, QStringLiteral("mark")}};
    for (row const& each : rows)
        if (each.on)
            markup = QStringLiteral("<%1>%2</%1>").arg(each.tag, markup);
    return link.isEmpty() ? markup : QStringLiteral("<a href=\"%1\">%2</a>").arg(link.toHtmlEscaped(), markup);
}

/// A code for a line's end that stands in the slice is a tag, any other changes what follows.
QString markupOf(slice const& part)
{
    QString markup;
    dress present;
    guiTextScanner scanner(part.run->editText().view());
    while (scanner.next()) {
        auto const start = static_cast<unsigned>(scanner.start());
        if (scanner.isCode()) {
            present.take(scanner.part());
            bool const isInside = start >= part.from && start < part.to;
            if (isInside && guiReadTextCode(scanner.part()) == guiTextCode::kLineBreak)
                markup += u"<br>";
            continue;
        }
        unsigned const from = std::max(part.from, start);
        unsigned const to = std::min(part.to, start + static_cast<unsigned>(scanner.part().size()));
        if (from < to)
            markup += present.around(scanner.part().mid(from - start, to - from).toString());
    }
    return markup;
}

/// A line of a page: its cells, of which a line outside of a table has one.
struct markupLine
{
    bool startsParagraph = false;
    std::vector<QString> cells;
};

std::vector<markupLine> linesOf(guiTextFlow const& flow, guiFlowPlace from, guiFlowPlace to)
{
    std::vector<markupLine> lines;
    for (std::size_t i = from.run; i <= to.run; ++i) {
        guiFlowGap const gap = i == from.run ? guiFlowGap() : flow[i].gap;
        if (i == from.run || gap.hasLine)
            lines.push_back({i == from.run || gap.hasParagraph, {QString()}});
        std::vector<QString>& cells = lines.back().cells;
        cells.resize(cells.size() + gap.cells);
        if (!cells.back().isEmpty())
            cells.back() += u' ';
        cells.back() += markupOf(sliceOf(flow, i, from, to));
    }
    return lines;
}

QString rowOf(markupLine const& line)
{
    QString row = QStringLiteral("<tr>");
    for (QString const& cell : line.cells)
        row += QStringLiteral("<td>%1</td>").arg(cell);
    return row + QStringLiteral("</tr>");
}

/// Lines of several cells that follow each other are the rows of one table.
class documentWriter
{
public:
    void add(markupLine const& line);
    QString end();

private:
    enum class state
    {
        kNothing,
        kParagraph,
        kTable,
    };

    void enter(state next);

    QString m_markup;
    state m_state = state::kNothing;
};

void documentWriter::enter(state next)
{
    if (m_state == state::kParagraph)
        m_markup += u"</p>\n";
    if (m_state == state::kTable)
        m_markup += u"</table>\n";
    if (next == state::kParagraph)
        m_markup += u"<p>";
    if (next == state::kTable)
        m_markup += u"<table>";
    m_state = next;
}

void documentWriter::add(markupLine const& line)
{
    bool const isRow = line.cells.size() > 1;
    bool const goesOn = isRow ? m_state == state::kTable : m_state == state::kParagraph && !line.startsParagraph;
    if (!goesOn)
        enter(isRow ? state::kTable : state::kParagraph);
    else if (!isRow)
        m_markup += u"<br>";
    m_markup += isRow ? rowOf(line) : line.cells.front();
}

QString documentWriter::end()
{
    enter(state::kNothing);
    return m_markup;
}

} // namespace

QString guiCopyAsText(guiTextFlow const& flow, guiFlowPlace from, guiFlowPlace to)
{
    assertOnGuiThread();
    QString text;
    for (std::size_t i = from.run; i <= to.run; ++i) {
        if (i != from.run)
            addGap(text, flow[i].gap);
        text += plainText(sliceOf(flow, i, from, to));
    }
    return text;
}

QString guiCopyAsHtml(guiTextFlow const& flow, guiFlowPlace from, guiFlowPlace to)
{
    assertOnGuiThread();
    std::vector<markupLine> const lines = linesOf(flow, from, to);
    if (lines.size() == 1 && lines.front().cells.size() == 1)
        return lines.front().cells.front(); // a part of a line goes into the line that it is put into
    documentWriter writer;
    for (markupLine const& line : lines)
        writer.add(line);
    return writer.end();
}

QString guiTextOfLink(guiHtmlText& run, unsigned link)
{
    QString text;
    guiTextScanner scanner(run.editText().view());
    while (scanner.next()) {
        auto const start = static_cast<unsigned>(scanner.start());
        if (start <= link)
            continue;
        if (!scanner.isCode())
            text += scanner.part();
        else if (guiReadTextCode(scanner.part()) == guiTextCode::kEndLink)
            break;
    }
    return text;
}
