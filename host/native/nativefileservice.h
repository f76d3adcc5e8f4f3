// host/native/nativefileservice.h: finds and reads the files that pages and scripts name.
#pragma once

#include "host/hostslots.h"

#include <atomic>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>

/// Relative names belong to the folder of the object that asks, or else to the folder of the host. "vfs://Name/file"
/// names a file inside the folder that was added as "Name", and nothing outside of it. Any thread.
class NativeFileService final : public HostLoadFileSlots
{
public:
    /// The largest file that can be read.
    static constexpr size_t kSizeLimit = 0x7FFFFFFF;

    /// The folder of relative names; a relative one, like the default ".", belongs to the working directory of the
    /// moment.
    void setFolder(std::filesystem::path folder);
    /// Makes the files of a folder known as "vfs://`name`/...".
    void addFolder(std::string const& name, std::filesystem::path folder);

    // What the component calls.
    void resolvePath(ScriptObject* relativeTo, sstring& path) override;
    bool readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length) override;
    void attach() override;
    void release() override;

    /// Whether the component has attached itself and not released the service since.
    bool isAttached() const { return m_attached; }

private:
    std::filesystem::path resolve(ScriptObject* relativeTo, std::string const& name) const;
    std::optional<std::filesystem::path> locate(ScriptObject* relativeTo, std::string const& name) const;
    std::optional<std::filesystem::path> locateVirtual(std::string const& name) const;

    std::atomic<bool> m_attached{false};
    mutable std::mutex m_mutex; // guards everything below
    std::filesystem::path m_folder = ".";
    std::map<std::string, std::filesystem::path> m_folders;
};
