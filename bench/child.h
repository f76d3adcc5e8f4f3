// bench/child.h: a program that a benchmark starts, watches from outside and ends.
#pragma once

#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// A program that is started, observed and killed.
class Child
{
public:
    explicit Child(std::vector<std::string> const& words)
    {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (std::string const& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        if (posix_spawn(&m_process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
            throw std::runtime_error("can not start " + words[0]);
    }
    Child(Child const&) = delete;
    Child& operator=(Child const&) = delete;
    ~Child()
    {
        if (m_process != 0)
            end();
    }

    struct Used
    {
        double processorSeconds;
        double peakBytes; // the most memory that was resident
    };

    /// Ends it. What it has used.
    Used end()
    {
        kill(m_process, SIGKILL);
        return waitForEnd();
    }

    /// The same when it ends by itself.
    Used waitForEnd()
    {
        rusage used{};
        wait4(m_process, nullptr, 0, &used);
        m_process = 0;
        auto const seconds = [](timeval const& time) {
            return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
        };
        return {seconds(used.ru_utime) + seconds(used.ru_stime), 1024.0 * static_cast<double>(used.ru_maxrss)};
    }

private:
    pid_t m_process = 0;
};
