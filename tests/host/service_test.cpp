// tests/host/service_test.cpp: the file, form and factory services.
#include "host/native/nativehost.h"
#include "host/native/nativetext.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// A folder of its own for each test, gone afterwards.
struct FileServiceTest : testing::Test
{
    std::shared_ptr<NativeEngine> engine = NativeEngine::make();
    fs::path folder;
    HostLoadFile* files = &engine->manager().files();

    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "tarn-host-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        engine->manager().files().setFolder(folder);
    }

    void TearDown() override { fs::remove_all(folder); }

    void write(fs::path const& name, std::string_view bytes) const
    {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }

    /// The bytes of a file, or "(none)".
    std::string read(std::string const& name, ScriptObject* owner = nullptr) const
    {
        void const* data = nullptr;
        unsigned length = 0;
        if (!files->readFile(owner, nativeToSString(nativeFromUtf8(name)), &data, &length))
            return "(none)";
        return std::string(static_cast<char const*>(data), length);
    }

    std::string resolve(std::string const& name, ScriptObject* owner = nullptr) const
    {
        sstring path = nativeToSString(nativeFromUtf8(name));
        files->resolvePath(owner, path);
        return nativeToUtf8(nativeFromSString(path));
    }
};

} // namespace

TEST_F(FileServiceTest, ResolvesAgainstTheHostsFolder)
{
    EXPECT_EQ(resolve("a/b.html"), folder / "a/b.html");
    EXPECT_EQ(resolve("../b.html"), folder.parent_path() / "b.html");
    EXPECT_EQ(resolve("/etc/hostname"), "/etc/hostname");
    EXPECT_EQ(resolve("\xC3\xA9.html"), folder / "\xC3\xA9.html");
}

TEST_F(FileServiceTest, ResolvesAgainstTheFolderOfTheObjectThatAsks)
{
    NativeObjectRef object = engine->makeObject();
    EXPECT_EQ(resolve("a.html", object.get()), folder / "a.html");
    object->setFolder("/somewhere/else");
    EXPECT_EQ(resolve("a.html", object.get()), "/somewhere/else/a.html");
}

TEST_F(FileServiceTest, AFullPathOfARelativeFolderIsFull)
{
    engine->manager().files().setFolder(".");
    EXPECT_EQ(resolve("a.html"), fs::current_path() / "a.html");
}

TEST_F(FileServiceTest, ReadsTheBytes)
{
    std::string bytes("\0\xFFpage\r\n", 8);
    write("page.html", bytes);
    write("empty.html", "");
    EXPECT_EQ(read("page.html"), bytes);
    EXPECT_EQ(read((folder / "page.html").string()), bytes);
    EXPECT_EQ(read("empty.html"), "");
    EXPECT_EQ(read("/proc/self/comm"), "host_native\n"); // a file whose size is only known after reading it
}

TEST_F(FileServiceTest, KeepsTheBytesUntilTheSameThreadReadsAgain)
{
    write("one", "first");
    write("two", "second");
    void const* data = nullptr;
    unsigned length = 0;
    ASSERT_TRUE(files->readFile(nullptr, "one", &data, &length));
    std::thread([this] { EXPECT_EQ(read("two"), "second"); }).join();
    EXPECT_EQ(std::string(static_cast<char const*>(data), length), "first");
}

TEST_F(FileServiceTest, RefusesWhatIsNoReadableFile)
{
    testing::internal::CaptureStderr();
    write("sub/page.html", "x");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(read("missing.html"), "(none)");
    EXPECT_EQ(read("sub"), "(none)");
    EXPECT_EQ(read(""), "(none)");
    EXPECT_EQ(read("pipe"), "(none)"); // without waiting for somebody to write into it
    EXPECT_EQ(read(std::string("sub/page.html\0.txt", 18)), "(none)");
    if (geteuid() != 0) {
        write("secret.html", "x");
        fs::permissions(folder / "secret.html", fs::perms::none);
        EXPECT_EQ(read("secret.html"), "(none)");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(FileServiceTest, RefusesAFileOfTwoGigabytes)
{
    write("huge", "");
    fs::resize_file(folder / "huge", 0x80000000u); // a hole: takes no room
    EXPECT_EQ(read("huge"), "(none)");
}

TEST_F(FileServiceTest, VirtualNamesStayInsideTheirFolder)
{
    write("package/broken.png", "picture");
    write("outside.txt", "secret");
    engine->manager().files().addFolder("GuiWindow", folder / "package");
    EXPECT_EQ(resolve("vfs://GuiWindow/broken.png"), "vfs://GuiWindow/broken.png");
    EXPECT_EQ(read("vfs://GuiWindow/broken.png"), "picture");
    EXPECT_EQ(read("vfs://GuiWindow/x/../broken.png"), "(none)"); // there is no folder x
    EXPECT_EQ(read("vfs://GuiWindow/../outside.txt"), "(none)");
    EXPECT_EQ(read("vfs://GuiWindow/../package/broken.png"), "(none)");
    EXPECT_EQ(read("vfs://GuiWindow/./../outside.txt"), "(none)");
    EXPECT_EQ(read("vfs://GuiWindow/x/..//../outside.txt"), "(none)");
    EXPECT_EQ(read("vfs://GuiWindow//" + (folder / "outside.txt").string()), "(none)");
    EXPECT_EQ(read("vfs://Other/broken.png"), "(none)");
    EXPECT_EQ(read("vfs://GuiWindow"), "(none)");
}

TEST_F(FileServiceTest, IsAttachedAndReleased)
{
    EXPECT_FALSE(engine->manager().files().isAttached());
    files->attach();
    EXPECT_TRUE(engine->manager().files().isAttached());
    files->release();
    EXPECT_FALSE(engine->manager().files().isAttached());
}

TEST(FormService, ReadsWritesAndErasesOnAnyThread)
{
    auto engine = NativeEngine::make();
    HostFormProp* forms = &engine->manager().forms();
    NativeObjectRef form = engine->makeObject();
    std::thread([&] {
        NativeValue value("Ann"), out;
        forms->writeProperty(form.get(), "person", &value);
        EXPECT_TRUE(forms->readProperty(form.get(), "person", &out));
        EXPECT_EQ(out, value);
        forms->writeProperty(form.get(), "gone", &value);
        forms->eraseProperty(form.get(), "gone");
        EXPECT_FALSE(forms->readProperty(form.get(), "gone", &out));
        EXPECT_TRUE(out.isNull());
        forms->setPageText(form.get(), "<html>");
    }).join();
    EXPECT_EQ(form->get("person"), NativeValue("Ann"));
    EXPECT_EQ(form->pageText(), "<html>");
}

TEST(FormService, ANullFormHasNoProperties)
{
    auto engine = NativeEngine::make();
    HostFormProp* forms = &engine->manager().forms();
    NativeValue value(1), out(2);
    forms->writeProperty(nullptr, "x", &value);
    EXPECT_FALSE(forms->readProperty(nullptr, "x", &out));
    EXPECT_TRUE(out.isNull());
    forms->eraseProperty(nullptr, "x");
    forms->setPageText(nullptr, "x");
}

TEST(Platform, CountsWhatIsNotGivenBack)
{
    auto engine = NativeEngine::make();
    HostPlatform* platform = &engine->manager().platform();
    ScriptObject* object = platform->createObject(engine.get());
    ScriptArgs* args = platform->createArgs(nullptr);
    ScriptValue* value = platform->createValue(engine.get());
    EXPECT_EQ(object->getEngine(), engine.get());
    EXPECT_EQ(args->count(), 0);
    EXPECT_TRUE(value->isNull());
    auto counts = engine->manager().platform().counts();
    EXPECT_EQ(counts.objects + counts.args + counts.values, 3);
    platform->destroyObject(object);
    platform->destroyArgs(args);
    platform->destroyValue(value);
    platform->destroyObject(nullptr);
    platform->destroyArgs(nullptr);
    platform->destroyValue(nullptr);
    counts = engine->manager().platform().counts();
    EXPECT_EQ(counts.objects + counts.args + counts.values, 0);
    EXPECT_EQ(engine->objects().size(), 0u);
}

TEST(LibManagerOfTheHost, KnowsThreeIdentifiersExactly)
{
    auto engine = NativeEngine::make();
    auto find = [&](char const* guid) { return engine->manager().getInterface(&guid); };
    EXPECT_EQ(find("FE74031B-EB9E-4F60-9BDE-7CE53078484D"), static_cast<HostLoadFile*>(&engine->manager().files()));
    EXPECT_EQ(find("8DCD1EE9-5B56-41AE-A9C6-84C0013D4932"), static_cast<HostFormProp*>(&engine->manager().forms()));
    EXPECT_EQ(find("385251A2-815A-419c-8C94-19CD16E03983"), static_cast<HostPlatform*>(&engine->manager().platform()));
    EXPECT_EQ(find("385251A2-815A-419C-8C94-19CD16E03983"), nullptr);
    EXPECT_EQ(find(""), nullptr);
    EXPECT_EQ(find(nullptr), nullptr);
}
