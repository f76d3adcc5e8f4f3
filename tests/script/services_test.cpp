// tests/script/services_test.cpp: tests of the paths that windows have the host resolve.
#include "tests/support/recordingmanager.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

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

} // namespace
