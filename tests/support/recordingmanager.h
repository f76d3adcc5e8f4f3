// tests/support/recordingmanager.h: the C++ host with two services that write down what the component asks of them.
#pragma once

#include "host/hostslots.h"
#include "host/native/nativehost.h"
#include "tests/support/fakescript.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// Hands everything on to the host's file service.
class RecordingFiles final : public HostLoadFileSlots
{
public:
    explicit RecordingFiles(HostLoadFile* host) : m_host(host) {}

    void resolvePath(ScriptObject* relativeTo, sstring& path) override
    {
        capacities.push_back(path.getCapacity());
        m_host->resolvePath(relativeTo, path);
    }
    bool readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length) override
    {
        return m_host->readFile(relativeTo, path, data, length);
    }
    void attach() override { calls.emplace_back("attach"), m_host->attach(); }
    void release() override { calls.emplace_back("release"), m_host->release(); }

    std::vector<std::string> calls;
    std::vector<unsigned> capacities;

private:
    HostLoadFile* m_host;
};

/// Makes the first object itself, which is the session's.
class RecordingPlatform final : public HostPlatformSlots
{
public:
    explicit RecordingPlatform(HostPlatform* host) : m_host(host) {}

    ScriptObject* createObject(ScriptEngine* engine) override
    {
        return objects++ == 0 ? &session : m_host->createObject(engine);
    }
    ScriptArgs* createArgs(ScriptEngine* engine) override { return m_host->createArgs(engine); }
    ScriptValue* createValue(ScriptEngine* engine) override { return m_host->createValue(engine); }
    void destroyObject(ScriptObject* object) override
    {
        if (object == &session)
            session.session.emplace_back("destroyed");
        else
            m_host->destroyObject(object);
    }
    void destroyArgs(ScriptArgs* args) override { m_host->destroyArgs(args); }
    void destroyValue(ScriptValue* value) override { m_host->destroyValue(value); }

    FakeObject session;
    int objects = 0;

private:
    HostPlatform* m_host;
};

/// The host's door, with the two services above in the places of the host's.
class RecordingManager final : public LibManager
{
public:
    explicit RecordingManager(LibManager& host)
        : files(find<HostLoadFile>(host, kHostLoadFileGuid)),
          platform(find<HostPlatform>(host, kHostPlatformGuid)),
          m_host(host)
    {}

    void* getInterface(char const** guid) override
    {
        asked.emplace_back(*guid);
        if (asked.back() == kHostLoadFileGuid)
            return static_cast<HostLoadFile*>(&files);
        if (asked.back() == kHostPlatformGuid)
            return static_cast<HostPlatform*>(&platform);
        return m_host.getInterface(guid);
    }

    std::vector<std::string> asked;
    RecordingFiles files;
    RecordingPlatform platform;

private:
    template <class Service>
    static Service* find(LibManager& host, char const* guid)
    {
        return static_cast<Service*>(host.getInterface(&guid));
    }

    LibManager& m_host;
};

inline std::optional<RecordingManager> theManager;

/// A host whose component sees it through theManager.
inline NativeHostOptions throughTheRecorder()
{
    NativeHostOptions options;
    options.folder = std::filesystem::temp_directory_path();
    options.component.init = [](LibManager& manager) { return Init(theManager.emplace(manager)); };
    return options;
}
