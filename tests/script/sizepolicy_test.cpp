// tests/script/sizepolicy_test.cpp: tests of the size policy names.
#include "host/native/nativehost.h"
#include "script/guisizepolicy.h"

#include <gtest/gtest.h>

namespace {

TEST(SizePolicy, NamesAreExact)
{
    EXPECT_EQ(guiSizePolicy_fromName("SCROLL"), kPolicyScroll);
    EXPECT_EQ(guiSizePolicy_fromName("RESIZE"), kPolicyResize);
    EXPECT_EQ(guiSizePolicy_fromName("FIXED"), kPolicyFixed);
    EXPECT_EQ(guiSizePolicy_fromName("fixed"), std::nullopt);
    EXPECT_EQ(guiSizePolicy_fromName(""), std::nullopt);
}

TEST(SizePolicy, EachConstantIsItsOwnName)
{
    NativeHost host;
    for (char const* name : {"SCROLL", "RESIZE", "FIXED"})
        EXPECT_EQ(host.classProperty("GuiSizePolicy", name).text(), name);
    EXPECT_EQ(host.classProperty("GuiSizePolicy", "scroll"), NativeValue());
}

TEST(SizePolicy, NamesArePropertiesOfTheClassAloneAndStayAsTheyAre)
{
    NativeHost host;
    LibManager& manager = host.engine().manager();
    for (char const* name : {"SCROLL", "RESIZE", "FIXED", "scroll", "width", ""}) {
        NativeValue value(name);
        NativeValue out("before");
        bool isKnown = guiSizePolicy_fromName(name).has_value();
        EXPECT_EQ(guiSizePolicy_onAddProp(manager, nullptr, nullptr, value, true), isKnown) << name;
        EXPECT_FALSE(guiSizePolicy_onAddProp(manager, nullptr, nullptr, value, false)) << name;
        EXPECT_EQ(guiSizePolicy_onGetProp(manager, nullptr, nullptr, value, out, true), isKnown) << name;
        EXPECT_EQ(out, NativeValue(isKnown ? name : "before"));
        for (bool isStatic : {false, true}) {
            EXPECT_FALSE(guiSizePolicy_onSetProp(manager, nullptr, nullptr, value, out, isStatic)) << name;
            EXPECT_FALSE(guiSizePolicy_onDelProp(manager, nullptr, nullptr, value, isStatic)) << name;
        }
    }
}

TEST(SizePolicy, AnyOtherNumberIsCalledResize)
{
    for (int policy : {3, 31, 255})
        EXPECT_STREQ(guiSizePolicy_toName(static_cast<guiSizePolicy>(policy)), "RESIZE");
}

} // namespace
