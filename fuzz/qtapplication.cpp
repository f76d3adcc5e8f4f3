// fuzz/qtapplication.cpp: see qtapplication.h.

#include "fuzz/qtapplication.h"

#include "fuzz/finding.h"

#include <cstdlib>

#include <QApplication>

void startQt()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    silenceLog();
    [[maybe_unused]] static auto* const application = new QApplication(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
}
