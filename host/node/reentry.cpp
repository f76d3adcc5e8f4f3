// host/node/reentry.cpp: see the header.
#include "host/node/reentry.h"

#include "host/node/microtaskloop.h"
#include "host/node/v8functions.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace reentry {

namespace {

// What the room for a v8::TryCatch is filled with, and how many bytes at its end must stay untouched.
constexpr unsigned char kUntouched = 0xA5;
[[maybe_unused]] constexpr int kMargin = 128;

} // namespace

bool canRunMicrotasks() { return MicrotaskLoop::here().canRun(); }

void runMicrotasks() { MicrotaskLoop::here().run(); }

ErrorBarrier::ErrorBarrier()
{
    auto const& v8 = v8Functions();
    if (!v8.currentIsolate || !v8.makeTryCatch || !v8.endTryCatch || !v8.setVerbose)
        return;
    m_end = v8.endTryCatch;
    std::fill(std::begin(m_tryCatch), std::end(m_tryCatch), kUntouched);
    v8.makeTryCatch(m_tryCatch, v8.currentIsolate());
    assert(std::count(std::end(m_tryCatch) - kMargin, std::end(m_tryCatch), kUntouched) == kMargin);
    v8.setVerbose(m_tryCatch, true);
}

ErrorBarrier::~ErrorBarrier()
{
    if (m_end)
        m_end(m_tryCatch);
}

} // namespace reentry
