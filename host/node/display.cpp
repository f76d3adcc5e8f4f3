// host/node/display.cpp: tries the platforms of the toolkit that the environment names: the X server by a connection,
// the Wayland compositor by its socket, all others by the file of the toolkit's plug-in.
#include "host/node/display.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <vector>

#include <dlfcn.h>
#include <link.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string variable(char const* name)
{
    char const* value = std::getenv(name);
    return value ? value : "";
}

std::string setting(char const* name) { return std::string(name) + '=' + variable(name); }

// --- which platforms the toolkit would try ---

/// The names in a list like "wayland;xcb:arguments", without arguments.
std::vector<std::string> namesIn(std::string const& list)
{
    std::vector<std::string> names;
    for (std::string_view rest = list; !rest.empty();) {
        auto item = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(rest.size(), item.size() + 1));
        if (!item.empty())
            names.emplace_back(item.substr(0, item.find(':')));
    }
    return names;
}

/// As the toolkit does it: what the user asks for, else Wayland where there is a sign of it, and X.
std::vector<std::string> platforms()
{
    auto named = namesIn(variable("QT_QPA_PLATFORM"));
    if (!named.empty())
        return named;
    if (std::getenv("WAYLAND_DISPLAY") || variable("XDG_SESSION_TYPE") == "wayland")
        return {"wayland", "xcb"};
    return {"xcb"};
}

// --- the plug-ins of the toolkit ---

/// Where the toolkit that is loaded in this process keeps its platforms; "" when that is not known for certain.
fs::path pluginFolder()
{
    if (!variable("QT_PLUGIN_PATH").empty() || !variable("QT_QPA_PLATFORM_PLUGIN_PATH").empty())
        return {};
    fs::path library;
    auto find = [](dl_phdr_info* info, size_t, void* out) {
        std::string_view name = info->dlpi_name ? info->dlpi_name : "";
        if (name.find("/libQt6Core.so") == std::string_view::npos)
            return 0;
        *static_cast<fs::path*>(out) = name;
        return 1;
    };
    if (dl_iterate_phdr(find, &library) == 0)
        return {};
    auto folder = library.parent_path() / "qt6" / "plugins" / "platforms";
    std::error_code ignored;
    return fs::is_directory(folder, ignored) ? folder : fs::path();
}

/// The file of "xcb" is libqxcb.so, that of "wayland" libqwayland-generic.so.
bool hasPlugin(std::string const& platform)
{
    auto folder = pluginFolder();
    if (folder.empty())
        return true;
    std::error_code failed;
    for (auto const& file : fs::directory_iterator(folder, failed))
        if (file.path().filename().string().starts_with("libq" + platform))
            return true;
    return static_cast<bool>(failed);
}

std::string missingPlugin(std::string const& platform)
{
    auto asked = variable("QT_QPA_PLATFORM");
    auto why = asked.empty() ? setting("WAYLAND_DISPLAY") : "QT_QPA_PLATFORM=" + asked;
    auto advice = platform.starts_with("wayland") ? R"(; install it with "apt-get install qt6-wayland")" : "";
    return why + " needs the platform \"" + platform + "\", which the toolkit does not have here" + advice;
}

// --- Wayland ---

/// Whether somebody listens on the socket.
bool answers(std::string const& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return true;
    bool good = connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    return good;
}

std::string problemOfWayland()
{
    if (std::getenv("WAYLAND_SOCKET")) // a connection that somebody has already opened
        return {};
    auto name = variable("WAYLAND_DISPLAY");
    if (answers(fs::path(variable("XDG_RUNTIME_DIR")) / (name.empty() ? "wayland-0" : name)))
        return {};
    return "no Wayland compositor answers at " + setting("WAYLAND_DISPLAY") + " with " + setting("XDG_RUNTIME_DIR");
}

// --- X ---

constexpr int kMalformedName = 5; // XCB_CONN_CLOSED_PARSE_ERR
constexpr int kNoSuchScreen = 6;  // XCB_CONN_CLOSED_INVALID_SCREEN

/// The library that the toolkit itself connects with; it is not linked, since the addon does without a display as well.
struct Xcb
{
    void* (*connect)(char const* display, int* screen);
    int (*hasError)(void* connection);
    void (*disconnect)(void* connection);
};

Xcb loadXcb()
{
    Xcb xcb{};
    void* library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return xcb;
    xcb.connect = reinterpret_cast<void* (*)(char const*, int*)>(dlsym(library, "xcb_connect"));
    xcb.hasError = reinterpret_cast<int (*)(void*)>(dlsym(library, "xcb_connection_has_error"));
    xcb.disconnect = reinterpret_cast<void (*)(void*)>(dlsym(library, "xcb_disconnect"));
    return xcb;
}

Xcb const& xcb()
{
    static Xcb const loaded = loadXcb();
    return loaded;
}

} // namespace

DisplayCheck::DisplayCheck()
{
    for (auto const& platform : platforms()) {
        auto problem = problemOf(platform);
        if (problem.empty()) { // one that works is enough
            m_problem.clear();
            return;
        }
        m_problem += (m_problem.empty() ? "there is no display: " : "; ") + problem;
    }
}

DisplayCheck::~DisplayCheck()
{
    if (m_connection && xcb().disconnect)
        xcb().disconnect(m_connection);
}

std::string DisplayCheck::problemOf(std::string const& platform)
{
    if (!hasPlugin(platform))
        return missingPlugin(platform);
    if (platform == "xcb")
        return problemOfX();
    return platform.starts_with("wayland") ? problemOfWayland() : std::string();
}

std::string DisplayCheck::problemOfX()
{
    if (variable("DISPLAY").empty())
        return "the environment variable DISPLAY is not set";
    if (!xcb().connect || !xcb().hasError || !xcb().disconnect)
        return R"(the library libxcb.so.1 is missing; install it with "apt-get install libxcb1")";
    int screen = 0; // whether it exists is looked up only for those who ask for its number
    m_connection = xcb().connect(nullptr, &screen);
    int code = xcb().hasError(m_connection);
    return code == 0 ? std::string() : refusal(code);
}

std::string DisplayCheck::refusal(int code) const
{
    auto display = setting("DISPLAY");
    if (code == kMalformedName)
        return display + " does not name one, such as :0 or :0.0";
    if (code == kNoSuchScreen)
        return "the X server at " + display + " has no such screen";
    return "no X server answers at " + display + ", or it refuses this program (" +
           (std::getenv("XAUTHORITY") ? setting("XAUTHORITY") : "XAUTHORITY is not set") + ")";
}

std::string displaySettings()
{
    std::string settings;
    for (auto name : {"QT_QPA_PLATFORM", "QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH", "DISPLAY", "WAYLAND_DISPLAY"})
        if (std::getenv(name))
            settings += (settings.empty() ? "" : ", ") + setting(name);
    return settings.empty() ? "no variable that names a display" : settings;
}
