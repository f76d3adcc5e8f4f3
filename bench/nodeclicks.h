// bench/nodeclicks.h: the program bench/click.js, which does in the Node.js host what bench_roundtrip does in its own.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <memory>

/// A running program with a window. It keeps to the cores of the thread that started it.
class NodeClicks
{
public:
    /// Null when the Node.js host was not built. Ends this program when it does not start.
    static std::unique_ptr<NodeClicks> start();
    ~NodeClicks();
    NodeClicks(NodeClicks const&) = delete;
    NodeClicks& operator=(NodeClicks const&) = delete;

    /// Clicks so often, one click after the other; seconds. Ends this program when not every click reached the handler.
    double click(int count);

private:
    NodeClicks() = default;
    void run();

    pid_t m_process = -1;
    std::FILE* m_orders = nullptr;
    std::FILE* m_answers = nullptr;
};
