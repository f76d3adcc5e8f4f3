// controls/guiplaceholder.h: the pale text in an empty field.
#pragma once

#include "controls/guiowncolors.h"

#include <QPalette>
#include <QString>
#include <cstdlib>

/// Some desktops give a dark palette without a colour for this text, which is black then: it is made the pale form of
/// the text that it stands for. GUI thread.
template <typename Field>
void guiShowPlaceholder(Field* field, QString const& text)
{
    field->setPlaceholderText(text);
    if (text.isEmpty())
        return;
    guiChooseColors(field, [](QPalette const& around, QPalette& own) {
        constexpr int kNear = 64;
        constexpr int kHalf = 128;
        QColor pale = around.color(QPalette::Text);
        if (std::abs(pale.lightness() - around.color(QPalette::PlaceholderText).lightness()) < kNear)
            return;
        pale.setAlpha(kHalf);
        own.setColor(QPalette::PlaceholderText, pale);
    });
}
