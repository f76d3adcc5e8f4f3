// controls/guiimage.h: the script class GuiImage: a picture that script loads and draws.
#pragma once

class QPixmap;
class ScriptClass;
class ScriptObject;

/// Declares the class. Always 1.
int guiImage_onConfigure(ScriptClass& scriptClass);

/// The picture of a GuiImage object; null when it has none, or is no such object. GUI thread; valid until the object
/// loads another one.
QPixmap const* guiImage_getPixmap(ScriptObject* image);
