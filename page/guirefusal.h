// page/guirefusal.h: a handler that refuses what the user has done, by returning false or a promise of false.
#pragma once

#include "foundation/vela-threadrole.h"

#include <functional>

/// While it exists, `refused` is called if the next handler that a link calls refuses: before the link's call returns,
/// or later, when its promise settles. `refused` has to know whether what it is about is still there. GUI thread.
class guiRefusalScope
{
public:
    explicit guiRefusalScope(std::function<void()> refused);
    ~guiRefusalScope();
    guiRefusalScope(guiRefusalScope const&) = delete;
    guiRefusalScope& operator=(guiRefusalScope const&) = delete;

    /// For who calls the handler: what to do if it refuses, which others then do not get any more; maybe empty.
    static std::function<void()> take();

private:
    std::function<void()> m_refused;
    guiRefusalScope* const m_outer; // not owned
};
