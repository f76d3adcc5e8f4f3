// page/guipdfupdate.cpp: see guipdfupdate.h.
#include "page/guipdfupdate.h"

#include "page/guipdffile.h"

#include <QIODevice>
#include <map>

namespace {

QByteArray number(double value) { return QByteArray::number(value, 'f', 2); }

/// A text as PDF has it: UTF-16 with its mark, in hexadecimal digits.
QByteArray hexText(QString const& text)
{
    QByteArray bytes("\xFE\xFF", 2);
    for (QChar const unit : text) {
        bytes += static_cast<char>(unit.unicode() >> 8);
        bytes += static_cast<char>(unit.unicode() & 0xFF);
    }
    return '<' + bytes.toHex() + '>';
}

/// An address holds no other bytes than printable ones of ASCII.
QByteArray literal(QByteArray const& text)
{
    QByteArray out = "(";
    for (char const c : text) {
        if (c == '(' || c == ')' || c == '\\')
            out += '\\';
        if (c > ' ' && c < 0x7F)
            out += c;
        else
            out += '%' + QByteArray(1, c).toHex().toUpper();
    }
    return out + ')';
}

class updating
{
public:
    explicit updating(QIODevice& file) : m_file(file) {}

    bool run(guiPdfAdditions const& additions)
    {
        if (!m_file.open())
            return false;
        m_pages = m_file.pages();
        for (int const page : m_pages)
            m_heights.push_back(heightOf(page));
        return addLinks(additions.links) && addOutline(additions.headings) && m_file.finish();
    }

private:
    /// In points; pages have a box of their own.
    double heightOf(int page)
    {
        QByteArray const box = guiPdfValue(m_file.object(page), "MediaBox");
        QList<QByteArray> const numbers = box.mid(1, box.size() - 2).simplified().split(' ');
        return numbers.size() == 4 ? numbers[3].toDouble() : 0;
    }

    bool hasPage(int page) const { return page >= 0 && page < static_cast<int>(m_pages.size()); }

    QByteArray destination(guiPdfPlace const& place) const
    {
        auto const page = static_cast<std::size_t>(place.page);
        return "[" + guiToPdfReference(m_pages[page]) + " /XYZ 0 " + number(m_heights[page] - place.top) + " 0]";
    }

    QByteArray annotation(guiPdfLink const& link) const
    {
        double const height = m_heights[static_cast<std::size_t>(link.page)];
        QRectF const& at = link.place;
        QByteArray const rect = "[" + number(at.left()) + ' ' + number(height - at.bottom()) + ' ' +
                                number(at.right()) + ' ' + number(height - at.top()) + "]";
        QByteArray const action =
            link.uri.isEmpty() ? "/S /GoTo /D " + destination(link.goTo) : "/S /URI /URI " + literal(link.uri);
        return "<< /Type /Annot /Subtype /Link /Border [0 0 0] /F 4 /Rect " + rect + " /A << " + action + " >> >>";
    }

    bool addLinks(std::vector<guiPdfLink> const& links)
    {
        std::map<int, QByteArray> lists;
        for (guiPdfLink const& link : links) {
            if (!hasPage(link.page) || (link.uri.isEmpty() && !hasPage(link.goTo.page)))
                continue;
            int const object = m_file.add();
            if (!m_file.write(object, annotation(link)))
                return false;
            lists[link.page] += guiToPdfReference(object) + '\n';
        }
        for (auto const& [page, list] : lists)
            if (!addToPage(m_pages[static_cast<std::size_t>(page)], list))
                return false;
        return true;
    }

    /// A page has its annotations in an array, or refers to an object that is one.
    bool addToPage(int page, QByteArray const& list)
    {
        QByteArray const text = m_file.object(page);
        QByteArray const present = guiPdfValue(text, "Annots");
        int const object = guiPdfReference(present);
        QByteArray const array = object != 0 ? m_file.object(object) : present;
        QByteArray const joined = "[\n" + array.mid(1, array.size() - 2).trimmed() + '\n' + list + "]";
        return object != 0 ? m_file.write(object, joined) : m_file.write(page, guiWithPdfValue(text, "Annots", joined));
    }

    /// An entry, by the object that it becomes. Its neighbours are 0 where there are none.
    struct entry
    {
        guiPdfHeading const* heading = nullptr; // null: the root
        int object = 0;
        std::size_t parent = 0;
        int before = 0;
        int behind = 0;
        int firstChild = 0;
        int lastChild = 0;
        std::size_t lastEntry = 0;
        int below = 0; // entries at all depths
    };

    /// An entry belongs to the nearest one before it of a lower level, whatever levels are left out.
    std::vector<entry> entriesOf(std::vector<guiPdfHeading> const& headings)
    {
        std::vector<entry> entries(1);
        entries[0].object = m_file.add();
        std::vector<std::size_t> open{0};
        for (guiPdfHeading const& heading : headings) {
            if (!hasPage(heading.place.page) || heading.text.isEmpty())
                continue;
            while (open.size() > 1 && entries[open.back()].heading->level >= heading.level)
                open.pop_back();
            link(entries, open.back(), heading);
            for (std::size_t const each : open)
                ++entries[each].below;
            open.push_back(entries.size() - 1);
        }
        return entries;
    }

    void link(std::vector<entry>& entries, std::size_t parent, guiPdfHeading const& heading)
    {
        entry added;
        added.heading = &heading;
        added.object = m_file.add();
        added.parent = parent;
        added.before = entries[parent].lastChild;
        if (added.before != 0)
            entries[entries[parent].lastEntry].behind = added.object;
        else
            entries[parent].firstChild = added.object;
        entries[parent].lastChild = added.object;
        entries[parent].lastEntry = entries.size();
        entries.push_back(added);
    }

    QByteArray textOf(std::vector<entry> const& entries, entry const& each) const
    {
        QByteArray text = "<<";
        auto const refer = [&text](char const* key, int object) {
            if (object != 0)
                text += " /" + QByteArray(key) + ' ' + guiToPdfReference(object);
        };
        if (each.heading) {
            text += " /Title " + hexText(each.heading->text) + " /Dest " + destination(each.heading->place);
            refer("Parent", entries[each.parent].object);
        } else {
            text += " /Type /Outlines";
        }
        refer("Prev", each.before);
        refer("Next", each.behind);
        refer("First", each.firstChild);
        refer("Last", each.lastChild);
        if (each.below != 0)
            text += " /Count " + QByteArray::number(each.below);
        return text + " >>";
    }

    bool addOutline(std::vector<guiPdfHeading> const& headings)
    {
        std::vector<entry> const entries = entriesOf(headings);
        if (entries.size() < 2)
            return true;
        for (entry const& each : entries)
            if (!m_file.write(each.object, textOf(entries, each)))
                return false;
        int const root = guiPdfReference(guiPdfValue(m_file.trailer(), "Root"));
        QByteArray catalog = guiWithPdfValue(m_file.object(root), "Outlines", guiToPdfReference(entries[0].object));
        catalog = guiWithPdfValue(catalog, "PageMode", "/UseOutlines");
        return m_file.write(root, catalog);
    }

    guiPdfFile m_file;
    std::vector<int> m_pages; // their objects
    std::vector<double> m_heights;
};

} // namespace

bool guiUpdatePdf(QIODevice& file, guiPdfAdditions const& additions) { return updating(file).run(additions); }
