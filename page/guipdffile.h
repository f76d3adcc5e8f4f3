// page/guipdffile.h: reads the objects of a PDF file with a plain cross-reference table (ISO 32000-1, 7.5.4), and
// appends new versions of them.
#pragma once

#include <QByteArray>

#include <map>
#include <optional>
#include <vector>

class QIODevice;

/// The value of a key in the text of a dictionary, without blanks around it; "" when the key is not there. Of a nested
/// dictionary or an array all of it.
QByteArray guiPdfValue(QByteArray const& dictionary, char const* key);
/// The dictionary with the key set; `value` is written as it stands.
QByteArray guiWithPdfValue(QByteArray const& dictionary, char const* key, QByteArray const& value);
/// The object that "12 0 R" refers to; 0 for anything else.
int guiPdfReference(QByteArray const& value);
QByteArray guiToPdfReference(int object);

/// One file. Any thread, one at a time.
class guiPdfFile
{
public:
    /// `file`: not owned; open for reading and writing.
    explicit guiPdfFile(QIODevice& file) : m_file(file) {}

    /// Reads where the objects are. False for a file that is not of the plain kind.
    bool open();
    /// The text between "obj" and "endobj", without a stream's data; "" when there is no such object.
    QByteArray object(int number);
    QByteArray const& trailer() const { return m_trailer; }
    /// The objects of the pages, in order.
    std::vector<int> pages();

    /// The number of a new object.
    int add();
    /// Appends a version of an object.
    bool write(int number, QByteArray const& text);
    /// Appends the table of what was written, and the trailer.
    bool finish();

private:
    bool readTables();
    bool readTable(qint64 at, QByteArray& trailer);
    void addPages(int node, int depth, std::vector<int>& found);

    QIODevice& m_file;
    qint64 m_lastTable = 0;
    QByteArray m_trailer;
    std::map<int, qint64> m_places; // of objects, from the start of the file
    std::map<int, qint64> m_written;
    int m_next = 1;
};
