// tests/support/qtmain.cpp: runs a test program inside an application object, on the platform that draws into memory.
#include <QApplication>
#include <cstdlib>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
