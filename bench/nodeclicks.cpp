// bench/nodeclicks.cpp: see nodeclicks.h. An order is a line with the number of clicks, the answer one with the seconds
// and the number of clicks that reached the handler.

#include "bench/nodeclicks.h"

#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void fail(char const* what)
{
    std::fprintf(stderr, "bench_roundtrip: the Node.js host %s\n", what);
    std::_Exit(1); // without waiting for a window that may hang
}

} // namespace

std::unique_ptr<NodeClicks> NodeClicks::start()
{
#ifdef TARN_CLICK_SCRIPT
    std::unique_ptr<NodeClicks> program(new NodeClicks);
    program->run();
    if (std::fscanf(program->m_answers, " ready") != 0 || std::feof(program->m_answers))
        fail("does not start");
    return program;
#else
    return nullptr;
#endif
}

NodeClicks::~NodeClicks()
{
    std::fclose(m_orders); // ends the program
    std::fclose(m_answers);
    waitpid(m_process, nullptr, 0);
}

double NodeClicks::click(int count)
{
    std::fprintf(m_orders, "%d\n", count);
    std::fflush(m_orders);
    double seconds = 0;
    int reached = 0;
    if (std::fscanf(m_answers, "%lf %d", &seconds, &reached) != 2)
        fail("gives no answer");
    if (seconds <= 0 || reached != count)
        fail("did not handle every click");
    return seconds;
}

#ifdef TARN_CLICK_SCRIPT
void NodeClicks::run()
{
    int orders[2];
    int answers[2];
    if (pipe(orders) != 0 || pipe(answers) != 0 || (m_process = fork()) < 0)
        fail("can not be started");
    if (m_process == 0) {
        dup2(orders[0], STDIN_FILENO);
        dup2(answers[1], STDOUT_FILENO);
        for (int end : {orders[0], orders[1], answers[0], answers[1]})
            close(end);
        setenv("TARN_LIBRARY", TARN_CLICK_COMPONENT, 1);
        setenv("TARN_ADDON", TARN_CLICK_HOST, 1);
        execl(TARN_CLICK_NODE, "node", TARN_CLICK_SCRIPT, TARN_CLICK_ADDON, nullptr);
        _exit(127);
    }
    close(orders[0]);
    close(answers[1]);
    m_orders = fdopen(orders[1], "w");
    m_answers = fdopen(answers[0], "r");
}
#endif
