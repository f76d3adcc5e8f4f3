// host/native/nativelibmanager.cpp: see nativelibmanager.h.
#include "host/native/nativelibmanager.h"

#include <string_view>

/// Each pointer is converted to its interface first: the component converts the void pointer back to that and nothing
/// else.
void* NativeLibManager::getInterface(char const** guid)
{
    std::string_view wanted = guid && *guid ? *guid : "";
    if (wanted == kHostLoadFileGuid)
        return static_cast<HostLoadFile*>(&m_files);
    if (wanted == kHostFormPropGuid)
        return static_cast<HostFormProp*>(&m_forms);
    if (wanted == kHostPlatformGuid)
        return static_cast<HostPlatform*>(&m_platform);
    return nullptr;
}
