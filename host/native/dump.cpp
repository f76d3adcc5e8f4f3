// host/native/dump.cpp: lays a page out in a window of a given size that nobody sees, and prints the page tree with
// every rectangle on standard output.
#include "controls/guiwidget.h"
#include "host/native/nativehost.h"
#include "host/native/nativetext.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

/// args: width, height. The result is the dump. GUI thread.
void dumpTree(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    if (!root)
        return;
    int width = args.get(0)->toInt(0);
    int height = args.get(1)->toInt(0);
    root->createWidget(0)->resize(width, height);
    guiRect rect{0, width, 0, height};
    root->setRect(&rect);
    result.setString(root->toString(0));
    root->destroyWidget();
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 4) {
        std::fprintf(stderr, "usage: %s PAGE.html WIDTH HEIGHT\n", arguments[0]);
        return 2;
    }
    NativeHost host;
    NativeWindow window = host.window();
    bool isWhole = window.load(std::filesystem::absolute(arguments[1]).string());
    NativeArguments size{std::atoi(arguments[2]), std::atoi(arguments[3])};
    NativeValue dump;
    NativeObject& object = *window.object();
    pGUI->getThread()->callFunction(dumpTree, pGUI->getManager(), object.getPrivate(), &object, size, dump);
    if (!dump.isString())
        return 1; // the component has said why
    std::string text = dump.text();
    std::fwrite(text.data(), 1, text.size(), stdout);
    return isWhole ? 0 : 1; // a page with a fault is printed as far as it was read
}
