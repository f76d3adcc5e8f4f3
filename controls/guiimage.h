// controls/guiimage.h: the script class GuiImage: a picture that script loads and draws.
#pragma once

class QPixmap;
class ScriptClass;
class ScriptObject;

/// Declares the class. Always 1.
int guiImage_onConfigure(ScriptClass& scriptClass);

/// The picture of a GuiImage object; null when it has none, or when the object is of another class. Valid until the
/// object loads another picture or is destroyed. GUI thread.
QPixmap const* guiImage_getPixmap(ScriptObject* image);
