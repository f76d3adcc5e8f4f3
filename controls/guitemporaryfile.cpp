// controls/guitemporaryfile.cpp: see guitemporaryfile.h.
#include "controls/guitemporaryfile.h"

#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <set>
#include <unistd.h>

namespace {

/// The files that are there.
class temporaryFiles
{
public:
    ~temporaryFiles()
    {
        for (std::string const& path : m_paths)
            unlink(path.c_str());
    }

    void add(std::string const& path)
    {
        std::lock_guard<std::mutex> const guard(m_lock);
        m_paths.insert(path);
    }

    void remove(std::string const& path)
    {
        std::lock_guard<std::mutex> const guard(m_lock);
        if (m_paths.erase(path))
            unlink(path.c_str());
    }

private:
    std::mutex m_lock;
    std::set<std::string> m_paths; // guarded by m_lock
};

temporaryFiles& files()
{
    static temporaryFiles all;
    return all;
}

bool writeAll(int file, std::vector<unsigned char> const& bytes)
{
    for (std::size_t done = 0; done < bytes.size();) {
        ssize_t const written = ::write(file, bytes.data() + done, bytes.size() - done);
        if (written <= 0)
            return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace

std::string guiTemporaryFile::write(std::vector<unsigned char> const& bytes, std::string const& extension)
{
    std::error_code error;
    std::filesystem::path const folder = std::filesystem::temp_directory_path(error);
    std::string path = (folder / "tarn-XXXXXX").string() + extension;
    int const file = error ? -1 : mkstemps(path.data(), static_cast<int>(extension.size())); // exclusive, 0600
    if (file < 0)
        return "";
    files().add(path);
    bool const isWritten = writeAll(file, bytes);
    if (close(file) == 0 && isWritten)
        return path;
    remove(path);
    return "";
}

void guiTemporaryFile::remove(std::string const& path) { files().remove(path); }
