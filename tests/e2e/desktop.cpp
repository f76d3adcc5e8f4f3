// tests/e2e/desktop.cpp: see desktop.h.
#include "tests/e2e/desktop.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

/// XFixesCursorImage of libXfixes, whose header need not be installed.
struct CursorImage
{
    short x, y;
    unsigned short width, height;
    unsigned short hotX, hotY;
    unsigned long serial;
    unsigned long* pixels;
    Atom atom;
    char const* name;
};

/// The window may go between two questions about it; that is an answer, not an error.
int ignoreErrors(Display*, XErrorEvent*) { return 0; }

void run(std::string const& command)
{
    if (std::system(("xdotool " + command + " >/dev/null").c_str()) != 0)
        throw std::runtime_error("xdotool " + command + " failed");
}

} // namespace

struct Desktop::Connection
{
    Connection() : display(XOpenDisplay(nullptr))
    {
        if (!display)
            throw std::runtime_error("there is no display to test on");
        XSetErrorHandler(ignoreErrors);
        root = DefaultRootWindow(display);
    }
    ~Connection() { XCloseDisplay(display); }

    Atom atom(char const* name) const { return XInternAtom(display, name, False); }

    /// The words of a property, or nothing.
    std::vector<unsigned long> words(Window window, std::string const& name) const
    {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display, window, atom(name.c_str()), 0, 1000, False, AnyPropertyType, &type, &format, &count,
                           &left, &data);
        std::vector<unsigned long> result;
        if (data && format == 32)
            result.assign(reinterpret_cast<unsigned long*>(data), reinterpret_cast<unsigned long*>(data) + count);
        if (data)
            XFree(data);
        return result;
    }

    std::string title(Window window) const
    {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display, window, atom("_NET_WM_NAME"), 0, 1000, False, AnyPropertyType, &type, &format,
                           &count, &left, &data);
        std::string result(data ? reinterpret_cast<char*>(data) : "");
        if (data)
            XFree(data);
        return result;
    }

    /// The visible window with this title among those that the window manager manages, or None.
    Window find(std::string const& wanted) const
    {
        for (Window window : words(root, "_NET_CLIENT_LIST")) {
            XWindowAttributes attributes;
            if (title(window) == wanted && XGetWindowAttributes(display, window, &attributes) &&
                attributes.map_state == IsViewable)
                return window;
        }
        return None;
    }

    DesktopArea area(Window window) const
    {
        XWindowAttributes attributes{};
        int left = 0, top = 0;
        Window child = None;
        XGetWindowAttributes(display, window, &attributes);
        XTranslateCoordinates(display, window, root, 0, 0, &left, &top, &child);
        return {left, top, left + attributes.width, top + attributes.height};
    }

    template <typename Use>
    void withCursor(Use use) const
    {
        static void* library = dlopen("libXfixes.so.3", RTLD_NOW);
        if (!library)
            throw std::runtime_error("libXfixes.so.3 is missing (Debian: libxfixes3)");
        auto query = reinterpret_cast<Bool (*)(Display*, int*, int*)>(dlsym(library, "XFixesQueryExtension"));
        auto get = reinterpret_cast<CursorImage* (*)(Display*)>(dlsym(library, "XFixesGetCursorImage"));
        int event = 0, error = 0;
        query(display, &event, &error);
        CursorImage* image = get(display);
        if (!image)
            throw std::runtime_error("the server shows no pointer");
        use(*image);
        XFree(image);
    }

    Display* display;
    Window root;
};

Desktop::Desktop() : m_x(std::make_unique<Connection>()) {}

Desktop::~Desktop() = default;

bool Desktop::waitUntil(std::function<bool()> const& check, std::chrono::milliseconds limit)
{
    auto end = std::chrono::steady_clock::now() + limit;
    while (!check()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
    }
    return true;
}

// ---- looking

std::optional<DesktopArea> Desktop::find(unsigned color) const
{
    XWindowAttributes screen{};
    XGetWindowAttributes(m_x->display, m_x->root, &screen);
    XImage* image = XGetImage(m_x->display, m_x->root, 0, 0, static_cast<unsigned>(screen.width),
                              static_cast<unsigned>(screen.height), AllPlanes, ZPixmap);
    if (!image || image->bits_per_pixel != 32)
        throw std::runtime_error("the screen has no 24 bits of colour");
    DesktopArea area{screen.width, screen.height, 0, 0};
    for (int y = 0; y < image->height; ++y) {
        auto* row = reinterpret_cast<unsigned*>(image->data + y * image->bytes_per_line);
        for (int x = 0; x < image->width; ++x) {
            if ((row[x] & 0xFFFFFF) == color)
                area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1), y + 1};
        }
    }
    XDestroyImage(image);
    return area.right > 0 ? std::optional(area) : std::nullopt;
}

DesktopArea Desktop::waitFor(unsigned color) const
{
    std::optional<DesktopArea> area;
    if (!waitUntil([&] { return (area = find(color)).has_value(); }))
        throw std::runtime_error("nothing on the screen has the colour " + std::to_string(color));
    return *area;
}

void Desktop::waitUntilGone(unsigned color) const
{
    if (!waitUntil([&] { return !find(color); }))
        throw std::runtime_error("something on the screen keeps the colour " + std::to_string(color));
}

bool Desktop::isOpen(std::string const& title) const { return m_x->find(title) != None; }

DesktopArea Desktop::window(std::string const& title) const
{
    if (!waitUntil([&] { return isOpen(title); }))
        throw std::runtime_error("no window has the title " + title);
    return m_x->area(m_x->find(title));
}

void Desktop::waitUntilClosed(std::string const& title) const
{
    if (!waitUntil([&] { return !isOpen(title); }))
        throw std::runtime_error("the window stays open: " + title);
}

/// The frame's extents are left, right, top and bottom; the title bar is as high as the top one, and its buttons are
/// square.
DesktopArea Desktop::closeButton(std::string const& title) const
{
    DesktopArea inner = window(title);
    std::vector<unsigned long> frame;
    if (!waitUntil([&] { return (frame = m_x->words(m_x->find(title), "_NET_FRAME_EXTENTS")).size() == 4; }))
        throw std::runtime_error("the window manager drew no frame around " + title);
    int bar = static_cast<int>(frame[2]);
    return {inner.right - bar, inner.top - bar, inner.right, inner.top};
}

std::vector<unsigned long> Desktop::property(std::string const& title, std::string const& name) const
{
    return m_x->words(m_x->find(title), name);
}

std::vector<std::string> Desktop::atoms(std::string const& title, std::string const& name) const
{
    std::vector<std::string> names;
    for (unsigned long atom : property(title, name)) {
        char* text = XGetAtomName(m_x->display, atom);
        names.emplace_back(text ? text : "?");
        if (text)
            XFree(text);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string Desktop::activeWindow() const
{
    std::vector<unsigned long> active = m_x->words(m_x->root, "_NET_ACTIVE_WINDOW");
    return active.empty() || active[0] == None ? "" : m_x->title(active[0]);
}

void Desktop::waitUntilActive(std::string const& title) const
{
    if (!waitUntil([&] { return activeWindow() == title; }))
        throw std::runtime_error("the window does not become active: " + title);
}

std::string Desktop::cursorPicture() const
{
    std::string picture;
    m_x->withCursor([&](CursorImage const& image) {
        size_t pixels = size_t{image.width} * image.height;
        picture.assign(reinterpret_cast<char const*>(image.pixels), pixels * sizeof(unsigned long));
    });
    return picture;
}

std::string Desktop::cursorName() const
{
    std::string name;
    m_x->withCursor([&](CursorImage const& image) { name = image.name ? image.name : ""; });
    return name;
}

// ---- doing

void Desktop::activate(std::string const& title) const
{
    window(title);
    run("windowactivate --sync " + std::to_string(m_x->find(title)));
}

void Desktop::place(std::string const& title, int x, int y) const
{
    window(title);
    run("windowmove --sync " + std::to_string(m_x->find(title)) + " " + std::to_string(x) + " " + std::to_string(y));
}

void Desktop::move(int x, int y) const { run("mousemove " + std::to_string(x) + " " + std::to_string(y)); }

void Desktop::click(DesktopArea const& area) const
{
    run("mousemove " + std::to_string(area.centerX()) + " " + std::to_string(area.centerY()) + " click 1");
}

void Desktop::press(int button) const { run("mousedown " + std::to_string(button)); }

void Desktop::release(int button) const { run("mouseup " + std::to_string(button)); }

// In steps: a jump from one end to the other is one move, which a program may take for another thing than a drag.
void Desktop::drag(int fromX, int fromY, int toX, int toY) const
{
    constexpr int kSteps = 8;
    move(fromX, fromY);
    press();
    for (int step = 1; step <= kSteps; ++step)
        move(fromX + (toX - fromX) * step / kSteps, fromY + (toY - fromY) * step / kSteps);
    release();
}

void Desktop::key(std::string const& name) const { run("key " + name); }

std::shared_ptr<void> Desktop::cover(DesktopArea const& area, unsigned color) const
{
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.background_pixel = color;
    Display* display = m_x->display;
    Window window =
        XCreateWindow(display, m_x->root, area.left, area.top, static_cast<unsigned>(area.right - area.left),
                      static_cast<unsigned>(area.bottom - area.top), 0, CopyFromParent, InputOutput, CopyFromParent,
                      CWOverrideRedirect | CWBackPixel, &attributes);
    XMapRaised(display, window);
    XSync(display, False);
    return {nullptr, [display, window](void*) {
                XDestroyWindow(display, window);
                XSync(display, False);
            }};
}
