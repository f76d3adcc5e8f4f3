// host/node/display.cpp: looks for the X server that the environment names.
#include "host/node/display.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

std::string_view variable(char const* name)
{
    char const* value = std::getenv(name);
    return value ? value : "";
}

/// The number in ":12" or ":12.0"; "" for a display on another machine, which only the toolkit can judge.
std::string localNumber(std::string_view display)
{
    if (display.empty() || display.front() != ':')
        return {};
    display.remove_prefix(1);
    auto number = display.substr(0, display.find('.'));
    return number.find_first_not_of("0123456789") == std::string_view::npos ? std::string(number) : std::string();
}

/// X servers listen on a socket file and, on Linux, on an abstract name: the same path behind a zero byte.
bool answers(std::string const& path, bool isAbstract)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    size_t start = isAbstract ? 1 : 0;
    if (path.size() + start >= sizeof address.sun_path)
        return true;
    std::memcpy(address.sun_path + start, path.data(), path.size());
    auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + start + path.size() + (isAbstract ? 0 : 1));
    int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return true;
    bool good = connect(descriptor, reinterpret_cast<sockaddr*>(&address), length) == 0;
    close(descriptor);
    return good;
}

} // namespace

std::string findDisplayProblem()
{
    auto platform = variable("QT_QPA_PLATFORM");
    if (!platform.empty() && !platform.starts_with("xcb"))
        return {};
    std::string display(variable("DISPLAY"));
    if (display.empty())
        return "there is no display: the environment variable DISPLAY is not set";
    auto number = localNumber(display);
    std::string path = "/tmp/.X11-unix/X" + number;
    if (!number.empty() && !answers(path, false) && !answers(path, true))
        return "there is no display: no X server answers at DISPLAY=" + display;
    return {};
}
