// tests/foundation/threadrole-checked.cpp: functions of two threads that only clang's analysis reads. They are correct;
// TARN_WRONG_CALL and TARN_WRONG_READ each add a mistake.

#include "foundation/vela-threadrole.h"

namespace {

int paintedFrames TARN_GUARDED_BY(velaGuiRole) = 0;

void repaint() TARN_ON(velaGuiRole) { ++paintedFrames; }

} // namespace

void onTimer()
{
    assertOnGuiThread();
    repaint();
}

void runEventLoop()
{
    velaGuiRole.claim();
    repaint();
    velaGuiRole.release();
}

void finishHandler() TARN_ON(velaScriptRole)
{
#ifdef TARN_WRONG_CALL
    repaint();
#endif
}

int countFrames() TARN_ON(velaScriptRole)
{
#ifdef TARN_WRONG_READ
    return paintedFrames;
#else
    return 0;
#endif
}
