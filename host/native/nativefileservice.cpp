// host/native/nativefileservice.cpp: see nativefileservice.h.
#include "host/native/nativefileservice.h"

#include "host/native/nativeobject.h"
#include "host/native/nativetext.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view kVirtual = "vfs://";

bool isVirtual(std::string const& name) { return name.starts_with(kVirtual); }

class OpenFile
{
public:
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    explicit OpenFile(std::filesystem::path const& path)
        : m_descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {}
    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;
    ~OpenFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    bool readAll(std::vector<unsigned char>& bytes) const
    {
        struct stat info = {};
        if (m_descriptor < 0 || fstat(m_descriptor, &info) != 0 || !S_ISREG(info.st_mode))
            return false;
        if (info.st_size > static_cast<off_t>(NativeFileService::kSizeLimit))
            return false;
        bytes.resize(static_cast<size_t>(info.st_size) + 1); // one more, to see the end without growing
        return readToEnd(bytes);
    }

private:
    /// The size is only a hint: it is 0 in /proc, and a file may grow while it is read.
    bool readToEnd(std::vector<unsigned char>& bytes) const
    {
        size_t filled = 0;
        for (;;) {
            ssize_t got = read(m_descriptor, bytes.data() + filled, bytes.size() - filled);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0 || filled + static_cast<size_t>(got) > NativeFileService::kSizeLimit)
                return false;
            if (got == 0)
                break;
            filled += static_cast<size_t>(got);
            if (filled == bytes.size())
                bytes.resize(std::max<size_t>(filled * 2, 65536));
        }
        bytes.resize(filled);
        return true;
    }

    int m_descriptor;
};

/// What the calling thread read last.
std::vector<unsigned char>& lastRead()
{
    thread_local std::vector<unsigned char> bytes;
    return bytes;
}

} // namespace

void NativeFileService::setFolder(std::filesystem::path folder)
{
    std::lock_guard lock(m_mutex);
    m_folder = std::move(folder);
}

void NativeFileService::addFolder(std::string const& name, std::filesystem::path folder)
{
    std::lock_guard lock(m_mutex);
    m_folders.insert_or_assign(name, std::move(folder));
}

void NativeFileService::resolvePath(ScriptObject* relativeTo, sstring& path)
{
    std::string name = nativeToUtf8(nativeFromSString(path));
    if (!isVirtual(name))
        path = nativeToSString(nativeFromUtf8(resolve(relativeTo, name).native()));
}

bool NativeFileService::readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length)
{
    std::vector<unsigned char>& bytes = lastRead();
    bytes = {};
    auto file = locate(relativeTo, nativeToUtf8(nativeFromSString(path)));
    if (!file || !OpenFile(*file).readAll(bytes))
        return false;
    *data = bytes.data();
    *length = static_cast<unsigned>(bytes.size());
    return true;
}

void NativeFileService::attach()
{
    [[maybe_unused]] bool was = m_attached.exchange(true);
    assert(!was);
}

void NativeFileService::release()
{
    [[maybe_unused]] bool was = m_attached.exchange(false);
    assert(was);
}

std::filesystem::path NativeFileService::resolve(ScriptObject* relativeTo, std::string const& name) const
{
    std::filesystem::path folder = relativeTo ? static_cast<NativeObject*>(relativeTo)->folder() : "";
    if (folder.empty()) {
        std::lock_guard lock(m_mutex);
        folder = m_folder;
    }
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(folder, error); // fails without a working directory
    return ((error ? folder : absolute) / name).lexically_normal();
}

std::optional<std::filesystem::path> NativeFileService::locate(ScriptObject* relativeTo, std::string const& name) const
{
    if (isVirtual(name))
        return locateVirtual(name);
    if (name.empty() || name.find('\0') != std::string::npos)
        return std::nullopt;
    return resolve(relativeTo, name);
}

/// A ".." must not lead out of the folder, not even for a moment; symbolic links inside the folder are the
/// application's own business.
std::optional<std::filesystem::path> NativeFileService::locateVirtual(std::string const& name) const
{
    std::string rest = name.substr(kVirtual.size());
    size_t slash = rest.find('/');
    std::lock_guard lock(m_mutex);
    auto found = m_folders.find(rest.substr(0, slash));
    if (slash == std::string::npos || found == m_folders.end() || rest.find('\0') != std::string::npos)
        return std::nullopt;
    int depth = 0;
    std::filesystem::path inside = std::filesystem::path(rest.substr(slash + 1)).relative_path();
    for (auto& part : inside) {
        bool const staysHere = part.empty() || part == ".";
        depth += part == ".." ? -1 : !staysHere;
        if (depth < 0)
            return std::nullopt;
    }
    return found->second / inside;
}
