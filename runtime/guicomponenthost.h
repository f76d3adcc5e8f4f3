// runtime/guicomponenthost.h: gives pages what they need of the component: the host's files, the content filters, and
// the script handlers behind their links.
#pragma once

/// Installs the component as the host of all pages. Called once, by the component's constructor, before the first page.
void guiComponentHost_install();
