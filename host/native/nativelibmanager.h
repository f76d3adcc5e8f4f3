// host/native/nativelibmanager.h: where the component gets the three services.
#pragma once

#include "host/native/nativefileservice.h"
#include "host/native/nativeformservice.h"
#include "host/native/nativeplatform.h"

/// Owns the services. Any thread.
class NativeLibManager final : public LibManager
{
public:
    explicit NativeLibManager(NativeEngine& engine) : m_platform(engine) {}

    NativeFileService& files() { return m_files; }
    NativeFormService& forms() { return m_forms; }
    NativePlatform& platform() { return m_platform; }

    void* getInterface(char const** guid) override;

private:
    NativeFileService m_files;
    NativeFormService m_forms;
    NativePlatform m_platform;
};
