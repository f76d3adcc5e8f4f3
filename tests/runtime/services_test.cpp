// Tests of what the component asks its host for: the three services, room for paths, and the session object.
#include "host/hostslots.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "tests/support/fakescript.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

namespace {

using Log = std::vector<std::string>;

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
    void attach() override { calls.push_back("attach"), m_host->attach(); }
    void release() override { calls.push_back("release"), m_host->release(); }

    Log calls;
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
            session.session.push_back("destroyed");
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
        asked.push_back(*guid);
        if (asked.back() == kHostLoadFileGuid)
            return static_cast<HostLoadFile*>(&files);
        if (asked.back() == kHostPlatformGuid)
            return static_cast<HostPlatform*>(&platform);
        return m_host.getInterface(guid);
    }

    Log asked;
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

std::optional<RecordingManager> theManager;

/// A host whose component sees it through theManager.
NativeHostOptions throughTheRecorder()
{
    NativeHostOptions options;
    options.folder = std::filesystem::temp_directory_path();
    options.component.init = [](LibManager& manager) { return Init(theManager.emplace(manager)); };
    return options;
}

TEST(Services, AreAskedForOnceEachInTheirOrder)
{
    NativeHost host(throughTheRecorder());
    EXPECT_EQ(theManager->asked, (Log{"FE74031B-EB9E-4F60-9BDE-7CE53078484D", "8DCD1EE9-5B56-41AE-A9C6-84C0013D4932",
                                      "385251A2-815A-419c-8C94-19CD16E03983"}));
    EXPECT_EQ(pGUI->getLoadFile(), &theManager->files);
    EXPECT_EQ(pGUI->getPlatform(), &theManager->platform);
    host.window();
    EXPECT_EQ(theManager->asked.size(), 3u) << "they are kept";
}

TEST(Services, TheFileServiceIsAttachedAtTheStartAndReleasedAtTheEnd)
{
    NativeHost host(throughTheRecorder());
    EXPECT_EQ(theManager->files.calls, Log{"attach"});
    host.shutdown();
    EXPECT_EQ(theManager->files.calls, (Log{"attach", "release"}));
}

TEST(Services, APathHasRoomForAThousandAndTwentyFourCharactersWhenItIsResolved)
{
    std::string const name = "tarn-services-" + std::to_string(::getpid()) + ".html";
    std::filesystem::path const file = std::filesystem::temp_directory_path() / name;
    std::ofstream(file) << "<html><body>text</body></html>";
    NativeHost host(throughTheRecorder());
    NativeWindow window = host.window(name);
    EXPECT_TRUE(window.isValid());
    window.load(name);
    window.loadBackground(name);
    EXPECT_GE(theManager->files.capacities.size(), 3u);
    for (unsigned capacity : theManager->files.capacities)
        EXPECT_GE(capacity, 1024u);
    std::filesystem::remove(file);
}

TEST(Services, TheSessionObjectHearsOfItsBeginAndItsEndOnce)
{
    NativeHost host(throughTheRecorder());
    Log const& heard = theManager->platform.session.session;
    EXPECT_TRUE(heard.empty()) << "there is no engine before the first window";
    NativeWindow first = host.window();
    NativeWindow second = host.window();
    EXPECT_EQ(pGUI->getSession(), &theManager->platform.session);
    EXPECT_EQ(heard, Log{"begin 0"});
    host.shutdown();
    EXPECT_EQ(heard, (Log{"begin 0", "end", "destroyed"}));
}

} // namespace
