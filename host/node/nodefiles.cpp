// host/node/nodefiles.cpp: file names and file contents.
#include "host/node/nodefiles.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr char kMountScheme[] = "vfs://";
constexpr char kFileScheme[] = "file://";

class Descriptor
{
public:
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    explicit Descriptor(std::string const& path) : m_fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

bool readAll(int descriptor, std::string& bytes)
{
    size_t at = 0;
    while (at < bytes.size()) {
        ssize_t got = ::read(descriptor, bytes.data() + at, bytes.size() - at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        if (got == 0)
            break;
        at += static_cast<size_t>(got);
    }
    bytes.resize(at);
    return true;
}

bool isInside(fs::path const& path, fs::path const& folder)
{
    auto relative = path.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != ".." && relative != ".";
}

} // namespace

void NodeFiles::setDefaultFolder(std::string folder)
{
    std::lock_guard lock(m_mutex);
    m_defaultFolder = std::move(folder);
}

void NodeFiles::mount(std::string name, std::string folder)
{
    std::lock_guard lock(m_mutex);
    m_mounts[std::move(name)] = std::move(folder);
}

std::string NodeFiles::resolve(std::string const& folder, std::string const& name) const
{
    if (name.find('\0') != std::string::npos)
        return {};
    if (name.starts_with(kMountScheme))
        return resolveMounted(name.substr(sizeof kMountScheme - 1));
    if (name.starts_with(kFileScheme))
        return name.substr(sizeof kFileScheme - 1);
    if (name.empty() || name.front() == '/')
        return name;
    std::lock_guard lock(m_mutex);
    return (fs::path(folder.empty() ? m_defaultFolder : folder) / name).lexically_normal().string();
}

std::string NodeFiles::resolveMounted(std::string const& rest) const
{
    size_t slash = rest.find('/');
    if (slash == std::string::npos)
        return {};
    std::unique_lock lock(m_mutex);
    auto mounted = m_mounts.find(rest.substr(0, slash));
    if (mounted == m_mounts.end())
        return {};
    std::error_code error;
    fs::path base = fs::weakly_canonical(mounted->second, error);
    lock.unlock();
    fs::path wanted = fs::path(rest.substr(slash + 1));
    if (error || wanted.is_absolute())
        return {};
    fs::path path = fs::weakly_canonical(base / wanted, error);
    return !error && isInside(path, base) ? path.string() : std::string();
}

void NodeFiles::confine(std::string folder)
{
    std::lock_guard lock(m_mutex);
    m_confines.push_back(std::move(folder));
}

void NodeFiles::allow(std::string const& path)
{
    std::lock_guard lock(m_mutex);
    m_allowed.insert(path);
}

void NodeFiles::addPage(std::string path, std::string bytes)
{
    std::lock_guard lock(m_mutex);
    m_pages[std::move(path)] = std::move(bytes);
}

void NodeFiles::forgetPage(std::string const& path)
{
    std::lock_guard lock(m_mutex);
    m_pages.erase(path);
}

bool NodeFiles::findPage(std::string const& path, std::string& bytes) const
{
    std::lock_guard lock(m_mutex);
    auto const found = m_pages.find(path);
    if (found == m_pages.end())
        return false;
    bytes = found->second;
    return true;
}

/// Names are followed through symbolic links before they are compared.
bool NodeFiles::isAllowed(std::string const& path) const
{
    std::lock_guard lock(m_mutex);
    if (m_confines.empty() || m_allowed.contains(path))
        return true;
    std::error_code error;
    fs::path const real = fs::weakly_canonical(path, error);
    auto const holds = [&](std::string const& folder) {
        std::error_code unknown;
        return isInside(real, fs::weakly_canonical(folder, unknown)) && !unknown;
    };
    return !error &&
           (std::any_of(m_confines.begin(), m_confines.end(), holds) ||
            std::any_of(m_mounts.begin(), m_mounts.end(), [&](auto const& each) { return holds(each.second); }));
}

bool NodeFiles::read(std::string const& path, std::string& bytes) const
{
    bytes.clear();
    if (findPage(path, bytes))
        return true;
    if (!isAllowed(path)) {
        std::fprintf(stderr, "tarn: %s is refused: it lies outside of the folders that pages are confined to\n",
                     path.c_str());
        return false;
    }
    Descriptor file(path);
    struct stat info = {};
    if (path.empty() || file.get() < 0 || fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    if (static_cast<unsigned long long>(info.st_size) > std::numeric_limits<unsigned>::max())
        return false;
    bytes.resize(static_cast<size_t>(info.st_size));
    return readAll(file.get(), bytes);
}
