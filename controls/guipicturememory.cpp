// controls/guipicturememory.cpp: see guipicturememory.h.
#include "controls/guipicturememory.h"

#include "controls/guicontrolhost.h"

#include <atomic>
#include <cassert>

namespace {

constexpr std::int64_t kMebibyte = std::int64_t{1} << 20;
constexpr std::int64_t kUsualLimit = 512 * kMebibyte;

std::atomic<std::int64_t> theBytesInUse{0};

} // namespace

guiPictureMemory& guiPictureMemory::operator=(guiPictureMemory&& other) noexcept
{
    std::swap(m_bytes, other.m_bytes);
    return *this;
}

bool guiPictureMemory::take(std::int64_t bytes)
{
    assert(bytes >= 0);
    if (theBytesInUse.fetch_add(bytes) + bytes > limit()) {
        theBytesInUse -= bytes;
        return false;
    }
    m_bytes += bytes;
    return true;
}

void guiPictureMemory::giveBack()
{
    theBytesInUse -= std::exchange(m_bytes, 0);
    assert(theBytesInUse >= 0);
}

std::int64_t guiPictureMemory::inUse() { return theBytesInUse; }

std::int64_t guiPictureMemory::limit()
{
    HostPlatform* const platform = guiControlHost::current().platform();
    unsigned const mebibytes = platform ? platform->pictureMemory() : 0;
    return mebibytes ? mebibytes * kMebibyte : kUsualLimit;
}
