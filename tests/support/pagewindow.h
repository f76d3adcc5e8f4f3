// tests/support/pagewindow.h: a window of the window runtime without a component, and a canvas to paint its nodes on.
#pragma once

#include "controls/guiwidget.h"
#include "runtime/guihtmlbase.h"
#include "tests/support/canvas.h"
#include "tests/support/windowof.h"

/// The root of a page without script.
struct PlainRoot : guiHtmlBase
{
    explicit PlainRoot(sstring const& file) : guiHtmlBase(nullptr, nullptr, nullptr, file) {}
    using guiHtmlBase::operator=;
};

using PageWindow = WindowOf<PlainRoot>;
