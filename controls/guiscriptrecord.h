// controls/guiscriptrecord.h: the records that the component keeps in the private slots of script's objects.
#pragma once

#include "script/hostinterface.h"

#include <cstdint>

/// The first word of every record. Data that begins with another word is not ours.
inline constexpr std::uint32_t kRecordTag = 0xfeedc0de;

/// The record in a slot; null when the slot is empty or its data has no tag. `Record` begins with a field `tag`. Any
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
        return nullptr; // a host that cannot read its slot
    }
}
