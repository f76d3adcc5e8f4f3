// page/guipdffile.cpp: see guipdffile.h.
#include "page/guipdffile.h"

#include <QIODevice>
#include <algorithm>

namespace {

constexpr int kMostDepth = 32;
constexpr int kMostUpdates = 100; // of one file
constexpr int kMostTrailerBytes = 4096;
constexpr int kEntryBytes = 20; // of one line of the table
constexpr qint64 kMostObjectBytes = 64 * 1024 * 1024;

bool isBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\f' || c == '\0'; }

bool isDelimiter(char c) { return isBlank(c) || std::string_view("/<>[]()%").find(c) != std::string_view::npos; }

/// One past the end of a literal text, which begins at `at`.
qsizetype endOfText(QByteArray const& from, qsizetype at)
{
    int depth = 0;
    for (; at < from.size(); ++at) {
        if (from[at] == '\\')
            ++at;
        else if (from[at] == '(')
            ++depth;
        else if (from[at] == ')' && --depth == 0)
            return at + 1;
    }
    return from.size();
}

/// One past the end of a name, a number, a word, a text, or a whole array or dictionary.
qsizetype endOfToken(QByteArray const& from, qsizetype at)
{
    int depth = 0;
    do {
        while (depth > 0 && at < from.size() && isBlank(from[at]))
            ++at;
        if (at >= from.size())
            return from.size();
        char const c = from[at];
        bool const isDouble = at + 1 < from.size() && from[at + 1] == c;
        if (c == '(') {
            at = endOfText(from, at);
        } else if (c == '[' || (c == '<' && isDouble)) {
            ++depth;
            at += c == '[' ? 1 : 2;
        } else if (c == ']' || (c == '>' && isDouble)) {
            --depth;
            at += c == ']' ? 1 : 2;
        } else {
            ++at;
            while (at < from.size() && !isDelimiter(from[at]))
                ++at;
            if (c == '<') // a text in hexadecimal digits
                at = std::min(at + 1, from.size());
        }
    } while (depth > 0);
    return at;
}

struct span
{
    qsizetype begin = -1;
    qsizetype end = -1;
};

qsizetype skipBlanks(QByteArray const& from, qsizetype at)
{
    while (at < from.size() && isBlank(from[at]))
        ++at;
    return at;
}

/// Where the value of a key of the outermost dictionary is.
span findValue(QByteArray const& dictionary, char const* key)
{
    qsizetype at = dictionary.indexOf("<<");
    if (at < 0)
        return {};
    for (at = skipBlanks(dictionary, at + 2); at < dictionary.size() && dictionary[at] == '/';) {
        qsizetype const endOfKey = endOfToken(dictionary, at);
        bool const isKey = dictionary.mid(at + 1, endOfKey - at - 1) == key;
        qsizetype const begin = skipBlanks(dictionary, endOfKey);
        qsizetype end = begin;
        // A reference is three words.
        while (end < dictionary.size() && dictionary[end] != '>' && (end == begin || dictionary[end] != '/'))
            end = skipBlanks(dictionary, endOfToken(dictionary, end));
        if (isKey)
            return {begin, end};
        at = end;
    }
    return {};
}

} // namespace

QByteArray guiPdfValue(QByteArray const& dictionary, char const* key)
{
    span const found = findValue(dictionary, key);
    return found.begin < 0 ? QByteArray() : dictionary.mid(found.begin, found.end - found.begin).trimmed();
}

QByteArray guiWithPdfValue(QByteArray const& dictionary, char const* key, QByteArray const& value)
{
    QByteArray changed = dictionary;
    span const found = findValue(dictionary, key);
    if (found.begin >= 0)
        return changed.replace(found.begin, found.end - found.begin, value + "\n");
    qsizetype const start = dictionary.indexOf("<<");
    return start < 0 ? changed : changed.insert(start + 2, "\n/" + QByteArray(key) + " " + value);
}

int guiPdfReference(QByteArray const& value)
{
    QList<QByteArray> const words = value.simplified().split(' ');
    return words.size() == 3 && words[2] == "R" ? words[0].toInt() : 0;
}

QByteArray guiToPdfReference(int object) { return QByteArray::number(object) + " 0 R"; }

bool guiPdfFile::open()
{
    constexpr qint64 kTail = 1024;
    qint64 const size = m_file.size();
    if (!m_file.seek(std::max<qint64>(0, size - kTail)))
        return false;
    QByteArray const tail = m_file.read(kTail);
    qsizetype const mark = tail.lastIndexOf("startxref");
    if (mark < 0)
        return false;
    m_lastTable = tail.mid(mark + 9).simplified().split(' ').first().toLongLong();
    return readTables() && guiPdfReference(guiPdfValue(m_trailer, "Root")) != 0;
}

/// The newest table first: of an object that has several versions the first one found counts.
bool guiPdfFile::readTables()
{
    qint64 at = m_lastTable;
    for (int i = 0; i < kMostUpdates && at != 0; ++i) {
        QByteArray trailer;
        if (!readTable(at, trailer))
            return false;
        at = guiPdfValue(trailer, "Prev").toLongLong();
        if (i == 0)
            m_trailer = trailer;
    }
    m_next = std::max(m_next, guiPdfValue(m_trailer, "Size").toInt());
    return true;
}

bool guiPdfFile::readTable(qint64 at, QByteArray& trailer)
{
    if (at <= 0 || !m_file.seek(at) || m_file.readLine().trimmed() != "xref")
        return false;
    for (;;) {
        qint64 const start = m_file.pos();
        QList<QByteArray> const range = m_file.readLine().simplified().split(' ');
        if (range.size() != 2) {
            m_file.seek(start);
            break;
        }
        int const first = range[0].toInt();
        for (int i = 0; i < range[1].toInt(); ++i) {
            QByteArray const entry = m_file.read(kEntryBytes);
            if (entry.size() != kEntryBytes)
                return false;
            if (entry[17] == 'n')
                m_places.emplace(first + i, entry.left(10).toLongLong());
            m_next = std::max(m_next, first + i + 1);
        }
    }
    QByteArray const rest = m_file.read(kMostTrailerBytes);
    qsizetype const begin = rest.startsWith("trailer") ? rest.indexOf("<<") : -1;
    if (begin >= 0)
        trailer = rest.mid(begin, endOfToken(rest, begin) - begin);
    return begin >= 0;
}

QByteArray guiPdfFile::object(int number)
{
    constexpr qint64 kPart = 4096;
    auto const place = m_places.find(number);
    if (place == m_places.end() || !m_file.seek(place->second))
        return {};
    QByteArray text;
    qsizetype end = -1;
    while (end < 0 && text.size() < kMostObjectBytes) {
        QByteArray const part = m_file.read(kPart);
        if (part.isEmpty())
            return {};
        qsizetype const from = std::max<qsizetype>(0, text.size() - 8);
        text += part;
        end = text.indexOf("endobj", from);
        qsizetype const stream = text.indexOf("stream", from);
        if (stream >= 0 && (end < 0 || stream < end))
            end = stream;
    }
    qsizetype const begin = text.indexOf("obj");
    return end < 0 || begin < 0 ? QByteArray() : text.mid(begin + 3, end - begin - 3).trimmed();
}

std::vector<int> guiPdfFile::pages()
{
    std::vector<int> found;
    QByteArray const catalog = object(guiPdfReference(guiPdfValue(m_trailer, "Root")));
    addPages(guiPdfReference(guiPdfValue(catalog, "Pages")), 0, found);
    return found;
}

void guiPdfFile::addPages(int node, int depth, std::vector<int>& found)
{
    QByteArray const text = object(node);
    QByteArray const kids = guiPdfValue(text, "Kids");
    if (kids.isEmpty()) {
        if (!text.isEmpty())
            found.push_back(node);
        return;
    }
    QList<QByteArray> const words = kids.mid(1, kids.size() - 2).simplified().split(' ');
    for (qsizetype i = 0; i + 2 < words.size() && depth < kMostDepth; i += 3)
        addPages(words[i].toInt(), depth + 1, found);
}

int guiPdfFile::add() { return m_next++; }

bool guiPdfFile::write(int number, QByteArray const& text)
{
    if (!m_file.seek(m_file.size()))
        return false;
    qint64 const at = m_file.pos();
    QByteArray const bytes = QByteArray::number(number) + " 0 obj\n" + text + "\nendobj\n";
    m_written[number] = at;
    return m_file.write(bytes) == bytes.size();
}

bool guiPdfFile::finish()
{
    if (!m_file.seek(m_file.size()))
        return false;
    qint64 const at = m_file.pos();
    QByteArray table = "xref\n";
    for (auto entry = m_written.begin(); entry != m_written.end();) {
        auto end = std::next(entry);
        int count = 1;
        for (; end != m_written.end() && end->first == entry->first + count; ++end)
            ++count;
        table += QByteArray::number(entry->first) + ' ' + QByteArray::number(count) + '\n';
        for (; entry != end; ++entry)
            table += QByteArray::number(entry->second).rightJustified(10, '0') + " 00000 n \n";
    }
    QByteArray trailer = guiWithPdfValue(m_trailer, "Size", QByteArray::number(m_next));
    trailer = guiWithPdfValue(trailer, "Prev", QByteArray::number(m_lastTable));
    table += "trailer\n" + trailer + "\nstartxref\n" + QByteArray::number(at) + "\n%%EOF\n";
    return m_file.write(table) == table.size();
}
