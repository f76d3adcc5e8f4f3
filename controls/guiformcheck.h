// controls/guiformcheck.h: whether all values of a form are as the page asks for.
#pragma once

class guiHtml;

/// Whether no control at or below the node has a wrong value. GUI thread.
bool guiIsFormValid(guiHtml* form);

/// The same before a form is sent: what is wrong is marked, and the first control with a mistake has the focus and says
/// what it is.
bool guiCheckForm(guiHtml* form);
