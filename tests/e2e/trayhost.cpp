// tests/e2e/trayhost.cpp: a tray for the private display, as a desktop's panel has one: by freedesktop.org's protocol
// for system trays. It stands in the upper left corner of the screen and shows its pictures in a row,
// kSide pixels each. Ends with its display, or by a signal.

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kSide = 32;
constexpr int kPlaces = 8;
constexpr long kRequestDock = 0;

Window makeBar(Display* display)
{
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.background_pixel = WhitePixel(display, DefaultScreen(display));
    Window const bar =
        XCreateWindow(display, DefaultRootWindow(display), 0, 0, kSide * kPlaces, kSide, 0, CopyFromParent, InputOutput,
                      CopyFromParent, CWOverrideRedirect | CWBackPixel, &attributes);
    XStoreName(display, bar, "Tray");
    XMapWindow(display, bar);
    return bar;
}

/// Tells all programs that there is a tray from now on.
void announce(Display* display, Atom selection, Window bar)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = DefaultRootWindow(display);
    event.xclient.message_type = XInternAtom(display, "MANAGER", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = CurrentTime;
    event.xclient.data.l[1] = static_cast<long>(selection);
    event.xclient.data.l[2] = static_cast<long>(bar);
    XSendEvent(display, DefaultRootWindow(display), False, StructureNotifyMask, &event);
}

void dock(Display* display, Window bar, Window icon, int place)
{
    XReparentWindow(display, icon, bar, place * kSide, 0);
    XMoveResizeWindow(display, icon, place * kSide, 0, kSide, kSide);
    XMapRaised(display, icon);
}

/// A picture may be taken back at any moment.
int ignoreError(Display*, XErrorEvent*) { return 0; }

} // namespace

int main()
{
    Display* const display = XOpenDisplay(nullptr);
    if (!display)
        return 1;
    XSetErrorHandler(ignoreError);
    Window const bar = makeBar(display);
    Atom const selection = XInternAtom(display, "_NET_SYSTEM_TRAY_S0", False);
    Atom const request = XInternAtom(display, "_NET_SYSTEM_TRAY_OPCODE", False);
    XSetSelectionOwner(display, selection, bar, CurrentTime);
    announce(display, selection, bar);
    XFlush(display);
    std::puts("ready");
    std::fflush(stdout);
    for (int docked = 0;;) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == ClientMessage && event.xclient.message_type == request &&
            event.xclient.data.l[1] == kRequestDock)
            dock(display, bar, static_cast<Window>(event.xclient.data.l[2]), docked++ % kPlaces);
    }
}
