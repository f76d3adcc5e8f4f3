// bench/nodeclicks.h: runs bench/click.js, which measures clicks in the Node.js host as bench_roundtrip does in the
// native host.
#pragma once

#include <cstdio>
#include <memory>

#include <sys/types.h>

/// A running program with a window, on the cores of the thread that started it.
class NodeClicks
{
public:
    /// Null if the Node.js host was not built. Exits if the program does not start.
    static std::unique_ptr<NodeClicks> start();
    ~NodeClicks();
    NodeClicks(NodeClicks const&) = delete;
    NodeClicks& operator=(NodeClicks const&) = delete;

    /// Clicks that often, one click after another, and returns the seconds. Exits if a click did not reach the handler.
    double click(int count);

private:
    NodeClicks() = default;
    void run();

    pid_t m_process = -1;
    std::FILE* m_orders = nullptr;
    std::FILE* m_answers = nullptr;
};
