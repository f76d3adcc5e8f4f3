// controls/guipicturefile.cpp: see guipicturefile.h.
#include "controls/guipicturefile.h"

#include "controls/guicontrolhost.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <sys/stat.h>

namespace {

/// Empty for a name without an extension.
QString largerName(QString const& name)
{
    qsizetype const dot = name.lastIndexOf(u'.');
    return dot > name.lastIndexOf(u'/') + 1 ? name.left(dot) + QStringLiteral("@2x") + name.mid(dot) : QString();
}

} // namespace

guiPictureFile guiPictureFile::forScreens(ScriptObject* owner, sstring const& name)
{
    constexpr int kLarger = 2;
    QString const larger = qApp->devicePixelRatio() >= kLarger ? largerName(sstoq(name)) : QString();
    if (!larger.isEmpty())
        if (guiPictureFile file(owner, qtoss(larger), kLarger); file.exists())
            return file;
    return guiPictureFile(owner, name);
}

guiPictureFile::guiPictureFile(ScriptObject* owner, sstring const& name, int scale)
    : m_owner(owner), m_name(guiPageHost::current().resolvePath(owner, name))
{
    assertOnGuiThread();
    m_state.name = sstoq(m_name);
    m_state.scale = scale;
    m_exists = readState();
    QByteArray bytes;
    if (m_exists || !read(bytes))
        return;
    m_exists = true;
    m_state.size = bytes.size();
    m_state.changed = static_cast<qint64>(qHashBits(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

/// What the system knows of the file; false for a name that only the host understands.
bool guiPictureFile::readState()
{
    struct stat info = {};
    if (stat(QFile::encodeName(m_state.name).constData(), &info) != 0)
        return false;
    constexpr qint64 kNanoseconds = 1'000'000'000;
    m_state.size = info.st_size;
    m_state.changed = info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec;
    return true;
}

bool guiPictureFile::read(QByteArray& bytes)
{
    void const* data = nullptr;
    unsigned length = 0;
    HostLoadFile* const files = guiControlHost::current().loadFile();
    if (!m_isRead && files && files->readFile(m_owner, m_name, &data, &length)) {
        m_bytes = QByteArray::fromRawData(static_cast<char const*>(data), static_cast<qsizetype>(length));
        m_isRead = true;
    }
    bytes = m_bytes;
    return m_isRead;
}
