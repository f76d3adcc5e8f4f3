// page/guipagehost.cpp: see guipagehost.h.
#include "page/guipagehost.h"

#include <atomic>

namespace {

std::atomic<guiPageHost*> theHost{nullptr};

} // namespace

guiPageHost* guiPageHost::current() { return theHost.load(std::memory_order_acquire); }
void guiPageHost::install(guiPageHost* host) { theHost.store(host, std::memory_order_release); }
