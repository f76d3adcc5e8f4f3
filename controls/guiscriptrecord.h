// controls/guiscriptrecord.h: the records that the component keeps in the private slots of script's objects.
#pragma once

#include "script/hostinterface.h"

#include <cstdint>

/// First word of every record. What has another one is not ours.
inline constexpr std::uint32_t kRecordTag = 0xfeedc0de;

/// The record in a slot, null when there is none, or one without the tag. `Record` begins with a field `tag`. Any
/// thread.
template <typename Record>
Record* guiRecordIn(ScriptPrivate* data)
{
    if (!data)
        return nullptr;
    try {
        auto* record = static_cast<Record*>(data->getData(kPrivateKey));
        return record && record->tag == kRecordTag ? record : nullptr;
    } catch (...) {
        return nullptr; // a host's slot that fails holds no record
    }
}
