// page/guifontepoch.h: tells a text whether its font may have changed since it was measured.
#pragma once

#include <cstdint>

class guiHtml;

/// A number that changes whenever the font of any node may have changed. GUI thread.
struct guiFontEpoch
{
    static std::uint32_t number() { return s_number; }
    /// A node got another parent or font, or all fonts were forgotten.
    static void advance() { ++s_number; }
    /// Compares the font of a page's root with the last one: a new application font is announced by no call. Called
    /// when a layout begins.
    static void check(guiHtml* root);

private:
    static inline std::uint32_t s_number = 1;
};
