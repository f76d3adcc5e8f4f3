// controls/guiimage.h: the script class GuiImage: a picture that script loads and draws.
#pragma once

class ScriptClass;

/// Declares the class. Always 1.
int guiImage_onConfigure(ScriptClass& scriptClass);
