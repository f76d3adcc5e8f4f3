// host/node/nodeservices.h: the services that the component asks its host for, of one environment.
#pragma once

#include "host/hostslots.h"
#include "host/node/nodefiles.h"
#include "script/hostinterface.h"

class NodeEngine;

/// Makes and releases objects, values and argument lists. Any thread.
class NodePlatform final : public HostPlatformSlots
{
public:
    ScriptObject* createObject(ScriptEngine* engine) override;
    ScriptArgs* createArgs(ScriptEngine* engine) override;
    ScriptValue* createValue(ScriptEngine* engine) override;
    void destroyObject(ScriptObject* object) override;
    void destroyArgs(ScriptArgs* args) override;
    void destroyValue(ScriptValue* value) override;
    bool displayLost() override;
    unsigned pictureMemory() override;

    /// How many argument lists the component has made on the calling thread and not destroyed. Not 0 while it calls
    /// script, and while it prepares such a call or waits behind it.
    static int argumentListsInUse();
};

/// Reads pages and pictures for the component. Any thread.
class NodeFileService final : public HostLoadFileSlots
{
public:
    explicit NodeFileService(NodeFiles& files) : m_files(files) {}

    void resolvePath(ScriptObject* relativeTo, sstring& path) override;
    bool readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length) override;
    void attach() override {}
    void release() override {}

private:
    std::string resolve(ScriptObject* relativeTo, sstring const& path) const;
    NodeFiles& m_files;
};

/// The values of a window's controls as properties of its form object. Any thread; never waits.
class NodeFormService final : public HostFormProp
{
public:
    bool readProperty(ScriptObject* form, sstring const& name, ScriptValue* out) override;
    void writeProperty(ScriptObject* form, sstring const& name, ScriptValue* value) override;
    void eraseProperty(ScriptObject* form, sstring const& name) override;
    void setPageText(ScriptObject* form, sstring const& text) override;
};

/// Where the component gets the three services.
class NodeServices final : public LibManager
{
public:
    NodeServices() : m_fileService(m_files) {}
    NodeFiles& files() { return m_files; }

    void* getInterface(char const** guid) override;

private:
    NodeFiles m_files;
    NodePlatform m_platform;
    NodeFileService m_fileService;
    NodeFormService m_formService;
};
