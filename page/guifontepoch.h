// page/guifontepoch.h: tells a text that its font is still the one that it was measured in, without asking for it.
#pragma once

#include <atomic>
#include <cstdint>

class guiHtml;

/// A number that changes whenever the font of any node may have. Pages are laid out on the GUI thread, but may be built
/// on the script thread meanwhile, so any thread may advance it; check() is the GUI thread's.
struct guiFontEpoch
{
    static std::uint32_t number() { return s_number.load(std::memory_order_relaxed); }
    /// A node got another parent or font, or all fonts were forgotten.
    static void advance() { s_number.fetch_add(1, std::memory_order_relaxed); }
    /// Asks the root of a page for its font, which may have changed without a word: the application has a new one.
    /// Called when a layout begins.
    static void check(guiHtml* root);

private:
    static inline std::atomic<std::uint32_t> s_number{1};
};
