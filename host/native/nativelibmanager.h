// host/native/nativelibmanager.h: the component's door to the three services.
#pragma once

#include "host/native/nativefileservice.h"
#include "host/native/nativeformservice.h"
#include "host/native/nativeplatform.h"

/// Owns the services. Any thread.
class NativeLibManager final : public LibManager
{
public:
    explicit NativeLibManager(NativeEngine& engine) : platform_(engine) {}

    NativeFileService& files() { return files_; }
    NativeFormService& forms() { return forms_; }
    NativePlatform& platform() { return platform_; }

    void* getInterface(const char** guid) override;

private:
    NativeFileService files_;
    NativeFormService forms_;
    NativePlatform platform_;
};
