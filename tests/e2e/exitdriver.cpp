// tests/e2e/exitdriver.cpp: a program that ends by exit(7) with a window on the screen, in the way its argument names:
// inside a handler of a "modal" or an "open" window; "opening", in the one that show() calls first; "posted", in work
// that comes up while the first show() opens its window; or "idle", outside of handlers. Quiet unless something goes
// wrong.
#include "tests/e2e/fixture.h"

int main(int, char** argv)
{
    std::string how = argv[1];
    TimeLimit limit(std::chrono::seconds(30));
    PageFolder pages;
    pages.write("page.html", linkPage("Exit", "event://onExit"));
    NativeHost host({.folder = pages.path()});
    NativeWindow window = host.window("page.html");
    std::thread user;
    window.on("onExit", [&pages, &user](NativeWindow&, NativeArguments const&) {
        user.join();                               // has clicked
        std::filesystem::remove_all(pages.path()); // exit() destroys nothing of main()
        std::exit(7);
    });
    auto leave = [&pages] {
        std::filesystem::remove_all(pages.path());
        std::exit(7);
    };
    if (how == "opening")
        window.on("ePostOpen", [leave](NativeWindow&, NativeArguments const&) { leave(); });
    if (how == "posted")
        host.post(leave);
    if (how == "opening" || how == "posted")
        window.show();
    user = std::thread([&] {
        Desktop desktop;
        waitForLink(desktop);
        if (how == "idle")
            host.quit();
        else
            clickLink(desktop);
    });
    if (how == "modal") {
        window.show();
    } else {
        window.open();
        host.run();
    }
    user.join();
    std::filesystem::remove_all(pages.path());
    std::exit(how == "idle" ? 7 : 1);
}
