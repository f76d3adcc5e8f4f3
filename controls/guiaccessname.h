// controls/guiaccessname.h: what the parts of a page are called, for screen readers: what the page says itself, or the
// text that stands for a field or beside it.
#pragma once

#include <QString>

class QWidget;
class guiHtml;

/// "" for what has no name of its own, such as a run of text. GUI thread.
QString guiAccessNameOf(guiHtml* node);
/// Of a field, a list or a box to check, with a widget or without: also the text of its label, its title, or the text
/// beside it.
QString guiControlNameOf(guiHtml* control);
/// What else is to be said: the level of a heading, the tip of a field.
QString guiAccessDescriptionOf(guiHtml* node);
/// Gives the widget of a control the name that the page has for it. A button that shows a text keeps that.
void guiNameWidget(guiHtml* control, QWidget* widget);
