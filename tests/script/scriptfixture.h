// tests/script/scriptfixture.h: a host with a folder of pages of its own, and ways to look at a window from the GUI
// thread.
#pragma once

#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

/// The folder is gone at the end of the test.
class ScriptTest : public testing::Test
{
protected:
    ScriptTest()
        : folder(std::filesystem::temp_directory_path() / (std::string("tarn-script-") + std::to_string(::getpid()))),
          host(makeOptions())
    {}
    ~ScriptTest() override { std::filesystem::remove_all(folder); }

    NativeHostOptions makeOptions()
    {
        std::filesystem::create_directories(folder);
        NativeHostOptions options;
        options.folder = folder;
        return options;
    }

    std::string write(std::string const& name, std::string const& bytes)
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return name;
    }

    /// A window whose page has this body.
    NativeWindow windowOf(std::string const& body)
    {
        return host.window(write("page.html", "<html><title>A title</title><body>" + body + "</body></html>"));
    }

    /// Runs `work` on the GUI thread with the window's page root, null without a page.
    static void onGuiThread(NativeWindow& window, std::function<void(guiHtmlBase*)> const& work)
    {
        using Work = std::function<void(guiHtmlBase*)>;
        auto run = [](LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue&) {
            auto address = static_cast<std::uintptr_t>(args.get(0)->toNumber(0));
            (*reinterpret_cast<Work const*>(address))(GetWindow(guiWindow_getData(data)));
        };
        NativeArguments args{static_cast<double>(reinterpret_cast<std::uintptr_t>(&work))}; // calls may nest
        NativeValue result;
        pGUI->getThread()->callFunction(run, pGUI->getManager(), window.object()->getPrivate(), nullptr, args, result);
    }

    /// What `work` prints on standard error.
    template <typename Work>
    static std::string printed(Work work)
    {
        testing::internal::CaptureStderr();
        work();
        return testing::internal::GetCapturedStderr();
    }

    /// The "window" that a handler is called with, and its node: follows an event link as a click does.
    static void follow(NativeWindow& window, std::string const& link, std::string const& from = "")
    {
        onGuiThread(window, [&](guiHtmlBase* root) {
            sstring name(from.c_str());
            guiHtml* node = from.empty() ? root : root->getNamed(name);
            ASSERT_NE(node, nullptr);
            node->onHyperlink(sstring(link.c_str()), node->getCustomObject());
        });
    }

    std::filesystem::path folder;
    NativeHost host;
};
