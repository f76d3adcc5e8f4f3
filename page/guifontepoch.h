// page/guifontepoch.h: tells a text that its font is still the one that it was measured in, without asking for it.
#pragma once

#include <cstdint>

class guiHtml;

/// A number that changes whenever the font of any node may have. GUI thread.
struct guiFontEpoch
{
    static std::uint32_t number() { return s_number; }
    /// A node got another parent or font, or all fonts were forgotten.
    static void advance() { ++s_number; }
    /// Asks the root of a page for its font, which may have changed without a word: the application has a new one.
    /// Called when a layout begins.
    static void check(guiHtml* root);

private:
    static inline std::uint32_t s_number = 1;
};
