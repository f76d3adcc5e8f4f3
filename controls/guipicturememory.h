// controls/guipicturememory.h: the memory that all decoded pictures and movies of the process share.
#pragma once

#include <cstdint>
#include <utility>

/// A part of it, given back when this object goes. Any thread.
class guiPictureMemory
{
public:
    guiPictureMemory() = default;
    guiPictureMemory(guiPictureMemory&& other) noexcept : m_bytes(std::exchange(other.m_bytes, 0)) {}
    guiPictureMemory& operator=(guiPictureMemory&& other) noexcept;
    ~guiPictureMemory() { giveBack(); }

    /// Makes the part larger; false, and nothing taken, when there is not as much left.
    [[nodiscard]] bool take(std::int64_t bytes);
    void giveBack();
    std::int64_t bytes() const { return m_bytes; }

    /// What all parts hold together, in bytes.
    static std::int64_t inUse();
    /// What they may hold: what the host says, 512 MiB when it says nothing.
    static std::int64_t limit();

private:
    std::int64_t m_bytes = 0;
};
