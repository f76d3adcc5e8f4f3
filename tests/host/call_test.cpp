// tests/host/call_test.cpp: asynchronous calls: the completion function runs exactly once, whatever becomes of the
// call.
#include "host/native/nativehost.h"

#include <gtest/gtest.h>

#include <thread>

using namespace std::chrono_literals;

namespace {

/// Counts the completions of one call and keeps the last result.
struct Completion
{
    std::atomic<int> count{0};
    NativeValue value = "none yet";

    static void done(ScriptValue& result, void* context)
    {
        auto* self = static_cast<Completion*>(context);
        self->value = static_cast<NativeValue&>(result);
        ++self->count;
    }
};

struct CallTest : testing::Test
{
    std::shared_ptr<NativeEngine> engine = NativeEngine::make();
    NativeObjectRef object = engine->makeObject();
    Completion completion;

    void start(char const* method, NativeArguments args = {})
    {
        ScriptObject* face = object.get();
        face->callMethodAsync(face, method, &args, Completion::done, &completion);
    }

    void runAll() { engine->pump().runOnce(0); }
};

} // namespace

TEST_F(CallTest, RunsOnTheScriptThreadAndCompletesWithTheResult)
{
    std::thread::id ran;
    object->on("twice", [&ran](NativeObject&, NativeArguments const& args) {
        ran = std::this_thread::get_id();
        return args[0].number() * 2;
    });
    std::thread([this] { start("twice", {21}); }).join();
    EXPECT_EQ(completion.count, 0);
    EXPECT_EQ(engine->calls().size(), 1u);
    runAll();
    EXPECT_EQ(ran, std::this_thread::get_id());
    EXPECT_EQ(completion.count, 1);
    EXPECT_EQ(completion.value, NativeValue(42));
    EXPECT_EQ(engine->calls().size(), 0u);
}

TEST_F(CallTest, KeepsItsObjectAndArgumentsUntilItRuns)
{
    object->on("give", [](NativeObject&, NativeArguments const& args) { return args[0]; });
    start("give", {"kept"});
    object = nullptr;
    EXPECT_EQ(engine->objects().size(), 1u);
    runAll();
    EXPECT_EQ(completion.value, NativeValue("kept"));
    EXPECT_EQ(engine->objects().size(), 0u);
}

TEST_F(CallTest, OfAMissingMethodCompletesWithNull)
{
    start("nothing");
    runAll();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
}

TEST_F(CallTest, OfAHandlerThatThrowsCompletesWithNull)
{
    object->on("fails", [](NativeObject&, NativeArguments const&) { throw std::runtime_error("no paper"); });
    testing::internal::CaptureStderr();
    start("fails");
    runAll();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Object.fails() threw an exception: no paper\n");
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
}

TEST_F(CallTest, ThatIsAnsweredLaterCompletesThen)
{
    NativeLater later;
    object->on("ask", [&later](NativeObject&, NativeArguments const&) { return later; });
    start("ask");
    runAll();
    EXPECT_EQ(completion.count, 0);
    std::thread([&later] { later.complete("at last"); }).join();
    EXPECT_EQ(completion.count, 1);
    EXPECT_EQ(completion.value, NativeValue("at last"));
    later.complete("again");
    EXPECT_EQ(completion.count, 1);
}

TEST_F(CallTest, WhoseAnswerIsThereAlreadyCompletesAtOnce)
{
    object->on("ask", [](NativeObject&, NativeArguments const&) {
        NativeLater later;
        later.complete(5);
        return later;
    });
    start("ask");
    runAll();
    EXPECT_EQ(completion.value, NativeValue(5));
}

TEST_F(CallTest, WhoseAnswerIsDroppedCompletesWithNull)
{
    auto later = std::make_unique<NativeLater>();
    object->on("ask", [&later](NativeObject&, NativeArguments const&) { return *later; });
    start("ask");
    runAll();
    EXPECT_EQ(completion.count, 0);
    later.reset();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
}

TEST_F(CallTest, ThatHasNotRunIsCompletedWithNullByTheEndOfTheHostAndDoesNotRunThen)
{
    bool ran = false;
    object->on("run", [&ran](NativeObject&, NativeArguments const&) { ran = true; });
    start("run");
    engine->stopCalls();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
    runAll();
    EXPECT_FALSE(ran);
    EXPECT_EQ(completion.count, 1);
}

TEST_F(CallTest, ThatWaitsForItsAnswerIsCompletedWithNullByTheEndOfTheHost)
{
    NativeLater later;
    object->on("ask", [&later](NativeObject&, NativeArguments const&) { return later; });
    start("ask");
    runAll();
    engine->stopCalls();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
    later.complete("too late");
    EXPECT_EQ(completion.count, 1);
}

TEST_F(CallTest, DuringWhoseHandlerTheHostEndsCompletesOnceWithNull)
{
    object->on("end", [this](NativeObject&, NativeArguments const&) {
        engine->stopCalls();
        return "unheard";
    });
    start("end");
    runAll();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
}

TEST_F(CallTest, AfterTheEndOfTheHostCompletesAtOnce)
{
    engine->stopCalls();
    std::thread([this] { start("run"); }).join();
    EXPECT_EQ(completion.count, 1);
    EXPECT_TRUE(completion.value.isNull());
    EXPECT_EQ(engine->calls().size(), 0u);
}

TEST_F(CallTest, ABlockingCallServesOthersUntilItsAnswerIsThere)
{
    NativeLater later;
    object->on("ask", [&later](NativeObject&, NativeArguments const&) { return later; });
    object->on("answer", [&later](NativeObject&, NativeArguments const&) { later.complete("served"); });
    start("answer");
    EXPECT_EQ(object->call("ask"), NativeValue("served"));
    EXPECT_EQ(completion.count, 1);
}

TEST_F(CallTest, ABlockingCallWhoseAnswerIsDroppedGivesNull)
{
    object->on("ask", [](NativeObject&, NativeArguments const&) { return NativeLater(); });
    EXPECT_TRUE(object->call("ask").isNull());
}

TEST_F(CallTest, ABlockingCallEndsWithTheHost)
{
    NativeLater later;
    object->on("ask", [&later](NativeObject&, NativeArguments const&) { return later; });
    std::thread stopper([this] {
        std::this_thread::sleep_for(10ms);
        engine->stopCalls();
    });
    EXPECT_TRUE(object->call("ask").isNull());
    stopper.join();
}

TEST_F(CallTest, CompletesExactlyOnceWhenManyThreadsRaceWithTheEnd)
{
    object->on("run", [](NativeObject&, NativeArguments const&) { return 1; });
    constexpr int kCalls = 2000;
    std::vector<Completion> completions(3 * kCalls);
    auto work = [&](int first) {
        ScriptObject* face = object.get();
        for (int i = first; i < first + kCalls; ++i)
            face->callMethodAsync(face, "run", nullptr, Completion::done, &completions[static_cast<size_t>(i)]);
    };
    std::thread first(work, 0), second(work, kCalls), third(work, 2 * kCalls);
    for (int turn = 0; turn < 1000; ++turn)
        engine->pump().step();
    engine->stopCalls();
    first.join();
    second.join();
    third.join();
    runAll();
    for (auto& one : completions)
        ASSERT_EQ(one.count, 1);
}
