// runtime/guielements.h: the custom elements of a page, from when its content is complete to when it goes. What each
// element does is in controls/guihtmlcustom.h; here is when, in the order of the page. GUI thread.
#pragma once

class guiHtml;
class guiHtmlBase;

/// Makes the instances of the elements at and below the node that have none, in the order of the page, and then tells
/// each that the page is complete ("eCreate"). Runs script, which may destroy the page.
void guiElements_start(guiHtmlBase& root, guiHtml* node);

/// Tells each element at and below the node that it goes ("eDestroy") and lets go of its instance. Runs script.
void guiElements_end(guiHtml* node);
/// Lets go of the instances without a word to script, which is ending.
void guiElements_drop(guiHtml* node);

/// Before a window opens: makes its elements anew when they went with the last one. False when script has destroyed the
/// page meanwhile.
bool guiElements_prepare(guiHtmlBase& root);
/// Before a window is shown: lays the page out in it and waits for the first drawing of each element in view. False
/// when script has closed the window meanwhile.
bool guiElements_draw(guiHtmlBase& root);
