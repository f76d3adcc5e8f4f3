// tests/support/fakescript.h: script objects that know which methods they have, and a world outside the page made of a
// few strings: enough to follow links without an interpreter.
#pragma once

#include "host/hostslots.h"
#include "page/guipagehost.h"
#include "script/hostinterface.h"

#include <QPixmap>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// An engine without values.
class FakeEngine final : public ScriptEngineSlots
{
public:
    ScriptRuntime* getRuntime() override { return nullptr; }
    ScriptObject* createInstance(sstring const&) override { return nullptr; }
    ScriptValue* makeValue() override { return nullptr; }
    void releaseValue(ScriptValue*) override {}
};

/// An object whose methods are C++ functions: each gets the event's name and returns the handler's reply.
class FakeObject final : public ScriptObjectSlots
{
public:
    std::map<std::string, std::function<std::string(std::string const& event)>> methods;
    std::vector<std::string> session; ///< what it heard as the session object

    bool getProperty(sstring const&, ScriptValue*) override { return false; }
    void setProperty(sstring const&, ScriptValue*) override {}
    void deleteProperty(sstring const&) override {}
    bool hasProperty(sstring const&) override { return false; }
    void addMethod(sstring const&, ScriptMethod) override {}
    ScriptPrivate* getPrivate() override { return nullptr; }
    void keep() override {}
    void letGo() override {}
    int beginSession(int flags) override { return session.push_back("begin " + std::to_string(flags)), 7; }
    int endSession() override { return session.emplace_back("end"), 7; }
    void windowState(int) override {}
    void callMethod(ScriptObject*, sstring const&, ScriptArgs*, ScriptValue*) override {}
    void callMethodAsync(ScriptObject*, sstring const&, ScriptArgs*, ScriptCompletion, void*) override {}
    bool hasMethod(sstring const& name) override { return methods.contains(name.c_str()); }
    ScriptEngine* getEngine() override { return &m_engine; }

private:
    FakeEngine m_engine;
};

/// Files by full name, handlers on FakeObjects. Installed while it exists. Names without a leading "/" are completed
/// with
/// "/app/", as the host completes what a script in that directory names.
class FakeHost : public guiPageHost
{
public:
    FakeHost() { install(this); }
    ~FakeHost() override { install(nullptr); }

    int callHandler(guiHtml*, ScriptObject* target, sstring const& event, sstring& reply) override
    {
        auto& methods = static_cast<FakeObject*>(target)->methods;
        std::string const whole = event.c_str();
        auto found = methods.find(whole.substr(0, whole.find_first_of("/\\")));
        if (found == methods.end())
            return 0;
        reply = sstring(found->second(whole).c_str());
        return 1;
    }

    sstring resolvePath(ScriptObject*, sstring const& path) override
    {
        std::string const name = path.c_str();
        bool isFull = name.starts_with("/") || name.find("://") != std::string::npos;
        return isFull ? path : sstring(("/app/" + name).c_str());
    }

    int readText(ScriptObject*, sstring const& path, sstring& text) override
    {
        read.emplace_back(path.c_str());
        auto found = files.find(path.c_str());
        if (found == files.end())
            return 0;
        text = sstring(found->second.c_str());
        return 1;
    }

    int openOutside(guiHtml*, sstring const& address) override
    {
        outside.emplace_back(address.c_str());
        return 1;
    }

    int filterText(guiPageRoot*, sstring& name, sstring& text) override { return filter ? filter(name, text) : 1; }

    guiPictureRef readImage(ScriptObject*, sstring const& path, QSize) override
    {
        read.emplace_back(path.c_str());
        if (!files.contains(path.c_str()))
            return nullptr;
        QPixmap image(4, 4);
        image.fill(Qt::green);
        return std::make_shared<guiPicture const>(guiPicture{image, image.size()});
    }

    std::map<std::string, std::string> files;
    std::vector<std::string> read;    ///< every file asked for, in order
    std::vector<std::string> outside; ///< every address that is no page of the program's, in order
    std::function<int(sstring& name, sstring& text)> filter;
};
