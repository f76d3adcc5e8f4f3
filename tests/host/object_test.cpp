// tests/host/object_test.cpp: script objects: properties, methods, private slot, life.
#include "host/native/nativehost.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

void answerSeven(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue& result) { result.setInt(7); }

struct ObjectTest : testing::Test
{
    std::shared_ptr<NativeEngine> engine = NativeEngine::make();
    NativeObjectRef object = engine->makeObject();
    ScriptObject* face = object.get();

    void SetUp() override { engine->setComponent(true); }
};

} // namespace

TEST_F(ObjectTest, PropertiesAreReadWrittenAndRemoved)
{
    NativeValue value("red"), out("stale");
    EXPECT_FALSE(face->getProperty("color", &out));
    EXPECT_TRUE(out.isNull());
    face->setProperty("color", &value);
    EXPECT_TRUE(face->hasProperty("color"));
    EXPECT_TRUE(face->getProperty("color", &out));
    EXPECT_EQ(out, value);
    face->deleteProperty("color");
    face->deleteProperty("color");
    EXPECT_FALSE(face->hasProperty("color"));
}

TEST_F(ObjectTest, TheWindowOfAControlIsNotHeldByIt)
{
    NativeObjectRef window = engine->makeObject();
    NativeValue value(window), out("stale");
    face->setProperty("window", &value);
    EXPECT_TRUE(face->getProperty("window", &out));
    EXPECT_EQ(out.object(), window);
    EXPECT_EQ(object->get("window").object(), window);
    size_t before = engine->objects().size();
    value = out = NativeValue();
    window = nullptr;
    EXPECT_EQ(engine->objects().size(), before - 1);
    EXPECT_TRUE(face->getProperty("window", &out));
    EXPECT_TRUE(out.isNull());
    value = NativeValue("text");
    face->setProperty("window", &value);
    EXPECT_EQ(object->get("window"), value);
}

TEST_F(ObjectTest, PropertyNamesAreExact)
{
    object->set("Color", "red");
    EXPECT_TRUE(object->get("color").isNull());
}

TEST_F(ObjectTest, AMethodIsKnownOnEveryThread)
{
    object->on("onOk", [](NativeObject&, NativeArguments const&) {});
    bool there = false, missing = true;
    std::thread([&] {
        there = face->hasMethod("onOk");
        missing = face->hasMethod("onCancel");
    }).join();
    EXPECT_TRUE(there);
    EXPECT_FALSE(missing);
}

TEST_F(ObjectTest, AHandlerSeesSelfAndArguments)
{
    object->on("add", [this](NativeObject& self, NativeArguments const& args) {
        EXPECT_EQ(&self, object.get());
        return args[0].number() + args[1].number();
    });
    EXPECT_EQ(object->call("add", {2, 3}), NativeValue(5));
}

TEST_F(ObjectTest, CallMethodUsesTheGivenSelf)
{
    NativeObjectRef other = engine->makeObject();
    NativeObject* seen = nullptr;
    object->on("who", [&seen](NativeObject& self, NativeArguments const&) { seen = &self; });
    NativeValue result(1);
    face->callMethod(other.get(), "who", nullptr, &result);
    EXPECT_EQ(seen, other.get());
    EXPECT_TRUE(result.isNull());
}

TEST_F(ObjectTest, AMissingMethodGivesNull)
{
    NativeArguments args;
    NativeValue result("stale");
    face->callMethod(face, "nothing", &args, &result);
    EXPECT_TRUE(result.isNull());
    EXPECT_TRUE(object->call("nothing").isNull());
}

TEST_F(ObjectTest, AHandlerThatThrowsIsReportedWithItsName)
{
    object->on("fails", [](NativeObject&, NativeArguments const&) { throw std::runtime_error("no paper"); });
    object->on("oddly", [](NativeObject&, NativeArguments const&) { throw 3; });
    testing::internal::CaptureStderr();
    EXPECT_TRUE(object->call("fails").isNull());
    EXPECT_TRUE(object->call("oddly").isNull());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Object.fails() threw an exception: no paper\n"
                                                      "Object.oddly() threw an exception: of an unknown type\n");
}

TEST_F(ObjectTest, ACallOnAnotherThreadIsRefused)
{
    object->on("run", [](NativeObject&, NativeArguments const&) { return 1; });
    NativeValue result(5);
    testing::internal::CaptureStderr();
    std::thread([&] { face->callMethod(face, "run", nullptr, &result); }).join();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Object.run() was called outside the script thread\n");
    EXPECT_TRUE(result.isNull());
}

TEST_F(ObjectTest, AddedMethodsShadowThoseOfTheClass)
{
    NativeClass& box = engine->addClass("Box");
    box.addMethod("size", answerSeven);
    NativeObjectRef first = engine->construct("Box", {});
    NativeObjectRef second = engine->construct("Box", {});
    second->on("size", [](NativeObject&, NativeArguments const&) { return 8; });
    EXPECT_EQ(first->call("size"), NativeValue(7));
    EXPECT_EQ(second->call("size"), NativeValue(8));
    object->addMethod("size", answerSeven);
    EXPECT_EQ(object->call("size"), NativeValue(7));
    EXPECT_TRUE(first->hasMethod("size"));
    EXPECT_FALSE(first->hasMethod("Size"));
}

TEST_F(ObjectTest, ThePrivateSlotKeepsPointersByKey)
{
    int record = 0;
    ScriptPrivate* slot = face->getPrivate();
    ASSERT_NE(slot, nullptr);
    EXPECT_EQ(slot->getData(kPrivateKey), nullptr);
    slot->setData(kPrivateKey, &record);
    EXPECT_EQ(slot->getData("tarn"), &record);
    EXPECT_EQ(slot->getData("other"), nullptr);
    slot->setData(kPrivateKey, nullptr);
    EXPECT_EQ(slot->getData(kPrivateKey), nullptr);
}

TEST_F(ObjectTest, KeepsAreCounted)
{
    face->keep();
    object = nullptr;
    EXPECT_EQ(engine->objects().size(), 1u);
    face->letGo();
    EXPECT_EQ(engine->objects().size(), 0u);
}

TEST_F(ObjectTest, HandlesOnManyThreadsCountRight)
{
    auto work = [this] {
        for (int i = 0; i < 20000; ++i)
            NativeValue value{NativeObjectRef(object)};
    };
    std::thread first(work), second(work);
    first.join();
    second.join();
    EXPECT_EQ(engine->objects().size(), 1u);
    object = nullptr;
    EXPECT_EQ(engine->objects().size(), 0u);
}

namespace {

/// What the handlers of the class Box saw.
struct BoxLog
{
    int created = 0;
    int destroyed = 0;
    int arguments = -1;
    std::thread::id destroyThread;
    ScriptObject* revived = nullptr;
} boxLog;

int boxRecord = 0;

void createBox(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue&)
{
    ++boxLog.created;
    boxLog.arguments = args.count();
    data->setData(kPrivateKey, &boxRecord);
}

void destroyBox(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue&)
{
    ++boxLog.destroyed;
    boxLog.destroyThread = std::this_thread::get_id();
    EXPECT_EQ(data->getData(kPrivateKey), &boxRecord);
    NativeValue passing; // a handle that comes and goes during the end must not end the object twice
    passing.setObject(self);
}

void destroyAndKeepBox(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue&)
{
    ++boxLog.destroyed;
    self->keep();
    boxLog.revived = self;
}

struct BoxTest : ObjectTest
{
    void SetUp() override
    {
        ObjectTest::SetUp();
        boxLog = {};
        NativeClass& box = engine->addClass("Box");
        box.setCreateHandler(createBox);
        box.setDestroyHandler(destroyBox);
    }
};

} // namespace

TEST_F(BoxTest, LivesFromItsCreateHandlerToItsDestroyHandler)
{
    NativeObjectRef box = engine->construct("Box", {"a", "b"});
    EXPECT_EQ(boxLog.created, 1);
    EXPECT_EQ(boxLog.arguments, 2);
    EXPECT_EQ(boxLog.destroyed, 0);
    box = nullptr;
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(BoxTest, IsDestroyedOnTheScriptThreadWhereverItsLastHandleGoes)
{
    NativeObjectRef box = engine->construct("Box", {});
    std::thread([box = std::move(box)]() mutable { box = nullptr; }).join();
    EXPECT_EQ(boxLog.destroyed, 0);
    engine->pump().step();
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(boxLog.destroyThread, std::this_thread::get_id());
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(BoxTest, ThatIsKeptDuringItsEndGoesLaterAndIsNotDestroyedTwice)
{
    NativeClass& bag = engine->addClass("Bag");
    bag.setDestroyHandler(destroyAndKeepBox);
    engine->construct("Bag", {});
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(engine->objects().size(), 2u);
    boxLog.revived->letGo();
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(BoxTest, IsNoLongerDestroyedByAComponentThatIsGone)
{
    NativeObjectRef box = engine->construct("Box", {});
    engine->setComponent(false);
    box = nullptr;
    EXPECT_EQ(boxLog.destroyed, 0);
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(BoxTest, ForgetsItsRecordsWithItsEnd)
{
    NativeObjectRef box = engine->construct("Box", {});
    engine->destroyObjects();
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(box->getPrivate()->getData(kPrivateKey), nullptr);
    engine->destroyObjects();
    EXPECT_EQ(boxLog.destroyed, 1);
}

TEST_F(BoxTest, CreateInstanceKeepsOnceForTheCaller)
{
    ScriptObject* box = engine->createInstance("Box");
    ASSERT_NE(box, nullptr);
    box->letGo();
    EXPECT_EQ(boxLog.destroyed, 1);
    EXPECT_EQ(engine->createInstance("Nothing"), nullptr);
}

TEST_F(BoxTest, CreateInstanceMakesObjectsOfTheComponentOnAnyThread)
{
    ScriptObject* box = nullptr;
    int created = boxLog.created;
    std::thread([&] { box = engine->createInstance("Box"); }).join();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(boxLog.created, created + 1);
    EXPECT_FALSE(engine->insideComponent());
    box->letGo();
    EXPECT_EQ(boxLog.destroyed, 1);
}

TEST_F(BoxTest, CreateInstanceOfTheApplicationsClassesOnAnotherThreadIsRefused)
{
    engine->addFactory("Gauge", [](NativeObject&, NativeArguments const&) {});
    ScriptObject* gauge = object.get();
    testing::internal::CaptureStderr();
    std::thread([&] { gauge = engine->createInstance("Gauge"); }).join();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "an object of class Gauge was made outside the script thread\n");
    EXPECT_EQ(gauge, nullptr);
}

TEST_F(ObjectTest, ApplicationClassesAreMadeByTheirFactory)
{
    engine->addFactory("Gauge", [](NativeObject& gauge, NativeArguments const& args) {
        gauge.on("ePaint", [](NativeObject&, NativeArguments const&) {});
        gauge.set("count", args.size());
    });
    ScriptObject* gauge = engine->createInstance("Gauge");
    ASSERT_NE(gauge, nullptr);
    EXPECT_TRUE(gauge->hasMethod("ePaint"));
    EXPECT_EQ(NativeValue(NativeObjectRef(static_cast<NativeObject*>(gauge))).text(), "[object Gauge]");
    gauge->letGo();
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(ObjectTest, AConstructorThatThrowsGivesNoObject)
{
    engine->addFactory("Gauge", [](NativeObject&, NativeArguments const&) { throw std::runtime_error("no scale"); });
    testing::internal::CaptureStderr();
    EXPECT_EQ(engine->createInstance("Gauge"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "the constructor of Gauge threw an exception: no scale\n");
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(ObjectTest, EngineValuesAreOwnedUntilReleased)
{
    ScriptValue* value = engine->makeValue();
    EXPECT_TRUE(value->isNull());
    value->setObject(engine->makeObject().get());
    EXPECT_EQ(engine->ownedValues(), 1u);
    EXPECT_EQ(engine->objects().size(), 2u);
    engine->releaseValue(value);
    EXPECT_EQ(engine->ownedValues(), 0u);
    EXPECT_EQ(engine->objects().size(), 1u);
}

TEST_F(ObjectTest, AnOpenWindowIsKeptAndItsCloseEndsAWait)
{
    std::thread([this] { face->windowState(1); }).join();
    object = nullptr;
    EXPECT_EQ(engine->objects().size(), 1u);
    std::thread closer([this] { face->windowState(0); });
    EXPECT_TRUE(engine->pump().turn(std::chrono::seconds(60)));
    closer.join();
    EXPECT_FALSE(engine->windows().any());
    EXPECT_EQ(engine->objects().size(), 0u);
}

namespace {

bool hasWidth(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    return name.toString(0) == "width" && !isStatic;
}
bool getWidth(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue& out, bool)
{
    out.setInt(640);
    return true;
}
bool refuseToDelete(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, bool) { return false; }
bool refuseToSet(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue const&, bool)
{
    return false;
}

} // namespace

TEST_F(ObjectTest, DynamicPropertiesAreAskedOfTheClass)
{
    engine->addClass("Pane").setPropertyHandlers(hasWidth, refuseToDelete, getWidth, refuseToSet);
    NativeObjectRef pane = engine->construct("Pane", {});
    EXPECT_EQ(pane->get("width"), NativeValue(640));
    EXPECT_FALSE(pane->set("width", 3));
    EXPECT_FALSE(pane->remove("width"));
    EXPECT_EQ(pane->get("width"), NativeValue(640));
    EXPECT_TRUE(pane->set("height", 3));
    EXPECT_EQ(pane->get("height"), NativeValue(3));
    EXPECT_TRUE(pane->remove("height"));
    EXPECT_TRUE(pane->get("height").isNull());
}
