// controls/guitoolkit.h: the script class GuiToolkit: what a custom element draws with.
#pragma once

class ScriptClass;

/// Declares the class. Always 1.
int guiToolkit_onConfigure(ScriptClass& scriptClass);
