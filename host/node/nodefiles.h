// host/node/nodefiles.h: finds and reads the files that pages and scripts name.
#pragma once

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

/// Names are UTF-8. Three forms: a full path; a path relative to the folder of the script that made the window; and
/// "vfs://Name/path", a path inside a folder that was registered under that name. Any thread.
class NodeFiles
{
public:
    /// Where relative names start when the asking object has no folder of its own.
    void setDefaultFolder(std::string folder);
    /// Registers `folder` for names that begin with "vfs://" + `name` + "/".
    void mount(std::string name, std::string folder);

    /// The full path of a file; "" for a vfs:// name that is not registered or that leads out of its folder, through a
    /// symbolic link too.
    std::string resolve(std::string const& folder, std::string const& name) const;

    /// The whole file. False when it is no regular file, cannot be read, or is 4 GiB and more; and, with a line on
    /// standard error, when pages are confined to other folders.
    bool read(std::string const& path, std::string& bytes) const;

    /// From now on only files below one of the folders that were given here, or registered, can be read, and those that
    /// were allowed one by one. Further calls add folders. Full paths.
    void confine(std::string folder);
    void allow(std::string const& path);

    /// A page that is no file: read() gives `bytes` for `path` until forgetPage().
    void addPage(std::string path, std::string bytes);
    void forgetPage(std::string const& path);

private:
    std::string resolveMounted(std::string const& rest) const;
    bool findPage(std::string const& path, std::string& bytes) const;
    bool isAllowed(std::string const& path) const;

    mutable std::mutex m_mutex; // guards what follows
    std::string m_defaultFolder;
    std::map<std::string, std::string> m_mounts;
    std::vector<std::string> m_confines; // empty: all files may be read
    std::set<std::string> m_allowed;
    std::map<std::string, std::string> m_pages;
};
