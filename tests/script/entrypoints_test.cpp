// tests/script/entrypoints_test.cpp: tests of the four entry points: the component is there once, and declares its five
// classes.
#include "host/native/nativehost.h"
#include "runtime/gui.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// A class that only notes what it is given.
struct RecordingClass final : ScriptClass
{
    std::vector<std::string> methods;
    std::vector<std::string> classMethods;
    int createHandlers = 0;
    int destroyHandlers = 0;
    int propertyHandlers = 0;

    void setCreateHandler(ScriptMethod) override { ++createHandlers; }
    void setDestroyHandler(ScriptMethod) override { ++destroyHandlers; }
    void setPropertyHandlers(ScriptAddProp, ScriptDelProp, ScriptGetProp, ScriptSetProp) override
    {
        ++propertyHandlers;
    }
    void addMethod(sstring const& name, ScriptMethod) override { methods.emplace_back(sstring(name).c_str()); }
    void addClassMethod(sstring const& name, ScriptMethod) override
    {
        classMethods.emplace_back(sstring(name).c_str());
    }
};

TEST(Component, ShutdownWithoutInitReturnsOne) { EXPECT_EQ(Shutdown(), 1); }

TEST(Component, SecondInitKeepsTheFirstComponent)
{
    NativeHost host;
    guiComponent* first = pGUI;
    EXPECT_EQ(Init(pGUI->getManager()), 1);
    EXPECT_EQ(pGUI, first);
}

TEST(Component, ShutdownTwiceReturnsOne)
{
    NativeHost host;
    host.shutdown();
    EXPECT_EQ(pGUI, nullptr);
    EXPECT_EQ(Shutdown(), 1);
}

TEST(Component, ListsItsFiveClassesInOrder)
{
    char const* const* names = GetCompNames();
    EXPECT_STREQ(names[0], "GuiWindow");
    EXPECT_STREQ(names[1], "GuiControl");
    EXPECT_STREQ(names[2], "GuiSizePolicy");
    EXPECT_STREQ(names[3], "GuiToolkit");
    EXPECT_STREQ(names[4], "GuiImage");
    EXPECT_EQ(names[5], nullptr);
}

TEST(Component, ConfiguresAClassWhateverItsCase)
{
    RecordingClass exact;
    RecordingClass folded;
    EXPECT_EQ(ConfigCompClass(nullptr, "GuiWindow", exact), 1);
    EXPECT_EQ(ConfigCompClass(nullptr, "guiwINDOW", folded), 1);
    EXPECT_EQ(exact.methods, folded.methods);
    EXPECT_FALSE(exact.methods.empty());
}

TEST(Component, ConfiguresEachOfItsNames)
{
    for (char const* const* name = GetCompNames(); *name != nullptr; ++name) {
        RecordingClass scriptClass;
        EXPECT_EQ(ConfigCompClass(nullptr, *name, scriptClass), 1) << *name;
    }
}

TEST(Component, RefusesAnUnknownClass)
{
    RecordingClass scriptClass;
    EXPECT_EQ(ConfigCompClass(nullptr, "GuiWindows", scriptClass), 0);
    EXPECT_EQ(ConfigCompClass(nullptr, "", scriptClass), 0);
    EXPECT_EQ(ConfigCompClass(nullptr, nullptr, scriptClass), 0);
    EXPECT_TRUE(scriptClass.methods.empty());
}

TEST(Component, WindowClassDeclaresItsMethodsInOrder)
{
    RecordingClass scriptClass;
    ConfigCompClass(nullptr, "GuiWindow", scriptClass);
    std::vector<std::string> wanted = {"open",
                                       "show",
                                       "close",
                                       "isOpen",
                                       "load",
                                       "setReturnValue",
                                       "isValid",
                                       "setMinimumSize",
                                       "setMaximumSize",
                                       "setDefaultSize",
                                       "setResizable",
                                       "setText",
                                       "loadFile",
                                       "loadBackground",
                                       "useSystemFont",
                                       "setTitle",
                                       "getTitle",
                                       "setFocus",
                                       "getFocus",
                                       "setEnterControl",
                                       "getEnterControl",
                                       "setEscapeControl",
                                       "getEscapeControl",
                                       "setSizePolicy",
                                       "getSizePolicy",
                                       "control"};
    EXPECT_EQ(scriptClass.methods, wanted);
    EXPECT_EQ(scriptClass.classMethods, std::vector<std::string>{"onLoad"});
    EXPECT_EQ(scriptClass.createHandlers, 1);
    EXPECT_EQ(scriptClass.destroyHandlers, 1);
}

TEST(Component, SizePolicyClassHasOnlyPropertyHandlers)
{
    RecordingClass scriptClass;
    ConfigCompClass(nullptr, "GuiSizePolicy", scriptClass);
    EXPECT_TRUE(scriptClass.methods.empty());
    EXPECT_EQ(scriptClass.createHandlers, 0);
    EXPECT_EQ(scriptClass.propertyHandlers, 1);
}

} // namespace
