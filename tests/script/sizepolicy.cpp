// Tests of the size policy names.
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
    for (const char* name : {"SCROLL", "RESIZE", "FIXED"})
        EXPECT_EQ(host.classProperty("GuiSizePolicy", name).text(), name);
    EXPECT_EQ(host.classProperty("GuiSizePolicy", "scroll"), NativeValue());
}

} // namespace
