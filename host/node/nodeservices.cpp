// host/node/nodeservices.cpp: the three services.
#include "host/node/nodeservices.h"

#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"

#include <cassert>
#include <cstdlib>
#include <cstring>

namespace {

NodeObject* nodeObject(ScriptObject* object) { return static_cast<NodeObject*>(object); }

thread_local int listsOfThisThread = 0;

} // namespace

ScriptObject* NodePlatform::createObject(ScriptEngine* engine)
{
    auto object = NodeObject::make(*static_cast<NodeEngine*>(engine), NodeObject::Kind::kTable);
    return NodeObjectHold(object.get()).release(); // for destroyObject
}

ScriptArgs* NodePlatform::createArgs(ScriptEngine*)
{
    ++listsOfThisThread;
    return new NodeArgs();
}

ScriptValue* NodePlatform::createValue(ScriptEngine*) { return new NodeValue(); }

void NodePlatform::destroyObject(ScriptObject* object)
{
    if (object)
        nodeObject(object)->dropHold();
}

void NodePlatform::destroyArgs(ScriptArgs* args)
{
    if (!args)
        return;
    assert(listsOfThisThread > 0); // a list ends on the thread that made it
    --listsOfThisThread;
    delete static_cast<NodeArgs*>(args);
}

int NodePlatform::argumentListsInUse() { return listsOfThisThread; }

void NodePlatform::destroyValue(ScriptValue* value) { delete static_cast<NodeValue*>(value); }

bool NodePlatform::displayLost() { return NodeComponent::the().loseDisplay(); }

// TARN_PICTURE_MEMORY of the environment, which a program may set itself, in MiB.
unsigned NodePlatform::pictureMemory()
{
    char const* const text = std::getenv("TARN_PICTURE_MEMORY");
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : 0;
}

std::string NodeFileService::resolve(ScriptObject* relativeTo, sstring const& path) const
{
    return m_files.resolve(relativeTo ? nodeObject(relativeTo)->folder() : std::string(), toUtf8(toText(path)));
}

void NodeFileService::resolvePath(ScriptObject* relativeTo, sstring& path)
{
    path = toSstring(fromUtf8(resolve(relativeTo, path)));
}

bool NodeFileService::readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length)
{
    thread_local std::string bytes; // valid until this thread's next call, as the interface says
    bool good = m_files.read(resolve(relativeTo, path), bytes);
    *data = good ? bytes.data() : nullptr;
    *length = good ? static_cast<unsigned>(bytes.size()) : 0;
    return good;
}

bool NodeFormService::readProperty(ScriptObject* form, sstring const& name, ScriptValue* out)
{
    return form ? form->getProperty(name, out) : (out->setNull(), false);
}

void NodeFormService::writeProperty(ScriptObject* form, sstring const& name, ScriptValue* value)
{
    if (form)
        form->setProperty(name, value);
}

void NodeFormService::eraseProperty(ScriptObject* form, sstring const& name)
{
    if (form)
        form->deleteProperty(name);
}

void NodeFormService::setPageText(ScriptObject* form, sstring const& text)
{
    if (form)
        nodeObject(form)->setPageText(toText(text));
}

void* NodeServices::getInterface(char const** guid)
{
    if (std::strcmp(*guid, kHostLoadFileGuid) == 0)
        return static_cast<HostLoadFile*>(&m_fileService);
    if (std::strcmp(*guid, kHostFormPropGuid) == 0)
        return static_cast<HostFormProp*>(&m_formService);
    if (std::strcmp(*guid, kHostPlatformGuid) == 0)
        return static_cast<HostPlatform*>(&m_platform);
    return nullptr;
}
