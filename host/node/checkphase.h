// host/node/checkphase.h: the order of the event loop's check callbacks, which run between its wait for I/O and its
// closing phase. Node's immediates (setImmediate) are such a callback.
//
// libuv runs the check handle first that was started last. This is not documented, but true of all of version 1.
#pragma once

#include <uv.h>

#include <vector>

/// Makes `check` the first check handle of its loop. Loop's thread, like everything here.
void startFirst(uv_check_t* check, uv_check_cb callback);

/// Makes `check` the last check handle of its loop: it runs right before the closing phase.
void startLast(uv_check_t* check, uv_check_cb callback);

/// Stops the check handles that are Node's own.
std::vector<uv_check_t*> stopNodesChecks(uv_loop_t* loop);
/// Starts them again.
void restart(std::vector<uv_check_t*> const& checks);
