// controls/guipicturefile.h: a file of a picture or movie as it is now: what it is known by, and its bytes.
#pragma once

#include "foundation/vela-string.h"

#include <QByteArray>
#include <QString>
#include <tuple>

class ScriptObject;

/// Two files that are equal in this hold the same picture.
struct guiFileState
{
    QString name;       ///< in full
    qint64 size = 0;    ///< bytes
    int scale = 1;      ///< pixels of the file for each of the page
    qint64 changed = 0; ///< time of the last change in nanoseconds; of a file that only the host can find, a checksum

    friend bool operator<(guiFileState const& a, guiFileState const& b)
    {
        return std::tie(a.changed, a.size, a.scale, a.name) < std::tie(b.changed, b.size, b.scale, b.name);
    }
};

/// GUI thread; needs the component.
class guiPictureFile
{
public:
    /// `name` is in full or relative to the script that owns `owner`, which may be null.
    guiPictureFile(ScriptObject* owner, sstring const& name, int scale = 1);

    /// `NAME@2x.EXT` beside `NAME.EXT`, the same picture with twice as many pixels, if there is a screen for it; else
    /// the file itself.
    static guiPictureFile forScreens(ScriptObject* owner, sstring const& name);

    /// False when the file can not be read.
    bool exists() const { return m_exists; }
    guiFileState const& state() const { return m_state; }
    /// Read from the file when they are first asked for; false when it can not be read. The bytes are the host's and
    /// stay valid until another file is read on this thread.
    bool read(QByteArray& bytes);

private:
    bool readState();

    ScriptObject* m_owner;
    sstring m_name;
    guiFileState m_state;
    QByteArray m_bytes;
    bool m_exists = false;
    bool m_isRead = false;
};
