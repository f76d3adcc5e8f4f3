// tests/e2e/stress_test.cpp: two thousand windows, opened, used and closed by several threads at once: nothing is lost
// and nothing is left behind.
#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"
#include "tests/e2e/fixture.h"

#include <atomic>
#include <future>
#include <malloc.h>
#include <random>

namespace {

// What ThreadSanitizer notes about each access is resident memory of the process, too, and grows with the test.
#if defined(__SANITIZE_THREAD__)
constexpr bool kHasShadowMemory = true;
#elif defined(__has_feature)
constexpr bool kHasShadowMemory = __has_feature(thread_sanitizer);
#else
constexpr bool kHasShadowMemory = false;
#endif

constexpr int kThreads = 4;
constexpr int kWindowsPerRound = 1000;
constexpr double kMostGrowth = 0.02; // of the memory after the first round

/// Memory of this process that is in use, in KiB. Pages that are free go back to the system first: how many of them the
/// allocator keeps depends on how many windows happened to be open at once.
long residentKiB()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);)
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stol(line.substr(6));
    return 0;
}

/// Calls the window's handler when it is triggered.
struct TriggerNode : guiHtml
{
    using guiHtml::operator=;
    void triggerNow() override { onEvent("event://onGo/7", nullptr); }
};

/// One window and what was asked of it. The script thread owns the handle; the others only use root and trigger while
/// the window is theirs.
struct Job
{
    NativeWindow window;
    guiHtmlBase* root = nullptr;
    guiHtml* trigger = nullptr;
    std::atomic<int> calls{0};
};

struct StressTest : testing::Test
{
    TimeLimit limit{std::chrono::seconds(110)};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    std::atomic<int> posted{0};
    std::atomic<int> heard{0};
    std::atomic<int> finished{0};

    StressTest()
    {
        pages.write(
            "page.html",
            "<html><head><title>Stress</title></head><body width=\"300\" height=\"120\" scrolling=\"yes\">"
            "<table><tr><td name=\"cell\" src=\"part.html\"></td><td>text <a href=\"event://none\">link</a></td>"
            "</tr></table></body></html>");
        pages.write("part.html", "<html><body bgcolor=\"#A0C0E0\"><p>part</p><p>of the page</p></body></html>");
    }

    /// Runs on the script thread and waits for it.
    void onScriptThread(std::function<void()> const& work)
    {
        std::promise<void> done;
        host.post([&] {
            work();
            done.set_value();
        });
        done.get_future().wait();
    }

    static guiHtml* addTrigger(guiHtmlBase* root)
    {
        static std::atomic<guiHtmlBase*> target;
        target = root;
        ScriptMethod append = [](LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) {
            target.load()->append(new TriggerNode);
        };
        NativeArguments args;
        NativeValue result;
        pGUI->getThread()->callFunction(append, pGUI->getManager(), nullptr, nullptr, args, result);
        return root->getLastChild();
    }

    void make(Job& job)
    {
        job.window = host.window("page.html");
        job.window.on("onGo", [this, &job](NativeWindow& self, NativeArguments const& args) {
            EXPECT_EQ(args[1], NativeValue("7"));
            self.setTitle("call " + std::to_string(++job.calls));
            ++heard;
        });
        EXPECT_TRUE(job.window.open());
        job.root = guiWindow_getData(job.window.object()->getPrivate())->root;
        job.trigger = addTrigger(job.root);
    }

    /// What a thread other than the two that the component knows may do with a window.
    void use(Job& job, std::mt19937& random)
    {
        guiThread* gui = pGUI->getThread();
        int triggers = 1 + static_cast<int>(random() % 3);
        for (int i = 0; i < triggers; ++i) {
            gui->postTrigger(job.trigger);
            ++posted;
            if (random() % 2 == 0)
                gui->postUpdate(job.root);
        }
        if (random() % 4 == 0)
            gui->callRepaint(job.root);
        ASSERT_TRUE(Desktop::waitUntil([&] { return job.calls == triggers; })) << "a call is lost";
        if (random() % 3 == 0) {
            EXPECT_EQ(gui->callSetText(job.root, "<p>other text</p>"), 1);
        }
    }

    /// By script, by a post, or by the end of the window itself.
    void close(Job& job, std::mt19937& random)
    {
        switch (random() % 3) {
        case 0:
            onScriptThread([&] { job.window.close(); });
            EXPECT_FALSE(job.root->isOpen());
            break;
        case 1:
            pGUI->getThread()->postClose(job.root);
            EXPECT_TRUE(Desktop::waitUntil([&] { return !job.root->isOpen(); }));
            break;
        default:
            pGUI->getThread()->callPageClose(job.root);
            EXPECT_FALSE(job.root->isOpen());
            break;
        }
        onScriptThread([&] { job.window = {}; });
    }

    void work(unsigned seed, int windows)
    {
        std::mt19937 random(seed);
        for (int i = 0; i < windows; ++i) {
            Job job;
            onScriptThread([&] { make(job); });
            if (job.trigger)
                use(job, random);
            close(job, random);
            ++finished;
        }
    }

    void round(unsigned seed)
    {
        int goal = finished + kWindowsPerRound;
        std::vector<std::thread> threads;
        for (unsigned i = 0; i < kThreads; ++i)
            threads.emplace_back([this, seed, i] { work(seed + i, kWindowsPerRound / kThreads); });
        EXPECT_TRUE(host.serveUntil([&] { return finished == goal; }, std::chrono::seconds(100)));
        for (std::thread& thread : threads)
            thread.join();
    }
};

} // namespace

TEST_F(StressTest, TwoThousandWindowsLoseNoCallAndLeaveNothingBehind)
{
    round(1);
    long first = residentKiB();
    round(100);
    long second = residentKiB();
    RecordProperty("first_KiB", std::to_string(first));
    RecordProperty("second_KiB", std::to_string(second));
    std::printf("memory after 1000 windows: %ld KiB, after 2000: %ld KiB; %d calls\n", first, second, heard.load());
    EXPECT_EQ(heard, posted);
    // The session keeps the window used last, and a page ends by a post when a call for it was under way.
    for (char const* kept : {"currentWindow", "currentControl", "currentForm"})
        pGUI->getSession()->deleteProperty(kept);
    EXPECT_TRUE(host.serveUntil([] { return pGUI->size() == 0; }, std::chrono::seconds(10)))
        << pGUI->size() << " nodes that nobody destroyed";
    EXPECT_FALSE(pGUI->hasOpenWindow());
    EXPECT_EQ(host.engine().calls().size(), 0u);
    if (!kHasShadowMemory) {
        EXPECT_LE(static_cast<double>(second), static_cast<double>(first) * (1 + kMostGrowth));
    }
}
