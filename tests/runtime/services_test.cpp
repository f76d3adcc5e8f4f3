// tests/runtime/services_test.cpp: tests of what the component asks its host for: the three services and the session
// object.
#include "runtime/gui.h"
#include "tests/support/recordingmanager.h"

#include <gtest/gtest.h>

namespace {

using Log = std::vector<std::string>;

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
