// page/guirefusal.cpp: see guirefusal.h.
#include "page/guirefusal.h"

#include <utility>

namespace {

guiRefusalScope* theInnermost TARN_GUARDED_BY(velaGuiRole) = nullptr;

} // namespace

guiRefusalScope::guiRefusalScope(std::function<void()> refused)
    : m_refused(std::move(refused)), m_outer([this] {
          assertOnGuiThread();
          return std::exchange(theInnermost, this);
      }())
{}

guiRefusalScope::~guiRefusalScope()
{
    assertOnGuiThread();
    theInnermost = m_outer;
}

std::function<void()> guiRefusalScope::take()
{
    assertOnGuiThread();
    return theInnermost ? std::exchange(theInnermost->m_refused, nullptr) : std::function<void()>();
}
