// controls/guiplaceholder.h: the pale text in an empty field.
#pragma once

#include <QPalette>
#include <QString>
#include <cstdlib>

/// Some desktops give a dark palette without a colour for this text, which is black then: it is made the pale form of
/// the text that it stands for. GUI thread.
template <typename Field>
void guiShowPlaceholder(Field* field, QString const& text)
{
    constexpr int kNear = 64;
    constexpr int kHalf = 128;
    field->setPlaceholderText(text);
    QPalette palette = field->palette();
    QColor pale = palette.color(QPalette::Text);
    if (std::abs(pale.lightness() - palette.color(QPalette::PlaceholderText).lightness()) < kNear)
        return;
    pale.setAlpha(kHalf);
    palette.setColor(QPalette::PlaceholderText, pale);
    field->setPalette(palette);
}
