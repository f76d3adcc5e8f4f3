// host/node/display.h: whether there is a display. The toolkit cannot start twice in a process, so what the environment
// names is tried before: a program may mend it and try again.
#pragma once

#include <string>

/// Tries what the environment names, when it is made. A connection to an X server lasts as long as the object: a server
/// may start anew when its last client leaves, so the object should live until the toolkit has a connection of its own.
class DisplayCheck
{
public:
    DisplayCheck();
    ~DisplayCheck();
    DisplayCheck(DisplayCheck const&) = delete;
    DisplayCheck& operator=(DisplayCheck const&) = delete;

    /// "" unless it is certain that no window can be opened, else one sentence that names the variable and its value.
    std::string const& problem() const { return m_problem; }

private:
    std::string problemOf(std::string const& platform);
    std::string problemOfX();
    std::string refusal(int code) const;

    std::string m_problem;
    void* m_connection = nullptr; // owned, xcb's
};

/// The variables that decide about the display, with their values, for a toolkit that does not start all the same.
std::string displaySettings();
