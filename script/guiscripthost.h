// script/guiscripthost.h: completes the component as the host of pages with what only the script classes can answer:
// making the objects that stand for controls, and finding the nodes behind them.
#pragma once

/// Installs the component as the host of all pages and controls. Before the first page is made; a second call does
/// nothing.
void guiScriptHost_install();
