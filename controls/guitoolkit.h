// controls/guitoolkit.h: the script class GuiToolkit: what a custom element draws with. Its drawing methods record
// (controls/guidrawing.h) while the element's "ePaint" runs and do nothing otherwise; none of them waits for the GUI
// thread. guitoolkit-methods.cpp holds the methods that script calls, with the rules for their arguments.
#pragma once

#include "controls/guidrawing.h"
#include "controls/guielementlink.h"
#include "script/hostinterface.h"

#include <QRegion>
#include <cstdint>
#include <memory>

class guiHtmlCustom;
class QPainter;

/// The private record of a GuiToolkit object. Made and destroyed with the object. Script thread.
struct guiToolkitData
{
    std::uint32_t tag = 0;
    ScriptObject* self = nullptr;         ///< the object itself; not owned: the record lives as long as it
    std::shared_ptr<guiElementLink> link; ///< the element; null for a toolkit that script has made by itself
    std::shared_ptr<guiDrawing> drawing;  ///< what is being recorded; null outside OpenToolkit() and CloseToolkit()
    QPainter* painter = nullptr;          ///< where CloseToolkit() draws it; null: nowhere. Not owned.
    QRegion region;                       ///< to which it is cut there
    guiRect rect;                         ///< the element's inner rectangle
    ScriptObject* rectObject = nullptr;   ///< the same as script sees it, from 0, 0. Owned.
};

/// Declares the class. Always 1.
int guiToolkit_onConfigure(ScriptClass& scriptClass);
void guiToolkit_onCreate(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                         ScriptValue& result);
void guiToolkit_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                          ScriptValue& result);
/// The record in a private slot, null when there is none or it has no tag. Any thread.
guiToolkitData* guiToolkit_getData(ScriptPrivate* data);
/// The record while it is being drawn with, null otherwise. Script thread.
guiToolkitData* guiToolkit_recordingIn(ScriptPrivate* data);

/// The toolkit object of an element, kept once for the caller; null, after a log line, when there is no script or the
/// object can not be made. Script thread.
ScriptObject* BuildToolkit(guiHtmlCustom* node);
/// Begins a drawing of the size of `rect`, the element's inner rectangle in the window, and sets the properties of the
/// toolkit to how they are at the beginning. With a painter the drawing goes there at the end, cut to `region`, if
/// there is one (GUI thread then).
void OpenToolkit(ScriptObject* toolkit, guiHtmlCustom* node, QPainter* painter, QRegion const* region, guiRect* rect);
/// Ends the drawing and returns it; null without one. From here on the drawing methods do nothing.
std::shared_ptr<guiDrawing> CloseToolkit(ScriptObject* toolkit);
/// Lets go of a toolkit; its record goes with the object. Null is allowed. Any thread.
void DestroyToolkit(ScriptObject* toolkit);

// What the drawing methods do, once their arguments are read. All do nothing while nothing is being recorded. An empty
// colour is the toolkit's own property "color" for a filled rectangle and for shapes, black for a line.

/// `rect`: an object with the properties "left", "top", "width" and "height"; null: the whole element.
void guiToolkit_fill(ScriptPrivate* data, sstring color, ScriptObject* rect);
void guiToolkit_drawLine(ScriptPrivate* data, sstring color, int x1, int y1, int x2, int y2, int width);
void guiToolkit_drawImage(ScriptPrivate* data, ScriptObject* image, int x, int y, int width, int height, int offsetX,
                          int offsetY);
/// `flags`: the alignment, one of XLEFT, XCENTER and XRIGHT.
void guiToolkit_drawText(ScriptPrivate* data, sstring text, ScriptObject* rect, unsigned long flags);

/// How text is drawn and measured now, by the toolkit's properties. Script thread.
guiTextStyle guiToolkit_textStyle(guiToolkitData const& record);
/// The colour that a text stands for; when that is empty the toolkit's property "color", else black. Script thread.
guiColor guiToolkit_colorOf(guiToolkitData const& record, sstring const& color);

/// Reads a rectangle from the four properties of an object; false when one of them is no number. Script thread.
bool guiReadRect(ScriptObject* object, guiRect* out);
/// A coordinate that script gave, limited so that sums of a few never overflow.
int guiToCoordinate(ScriptValue const& value);
