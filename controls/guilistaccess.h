// controls/guilistaccess.h: what a screen reader sees of a flex list: a table or a tree of cells. Nothing of it is made
// until somebody asks, and then only for the cells that are asked about.
#pragma once

#include "controls/guilistrows.h"

#include <QAccessible>
#include <functional>

class guiWidgetListView;

/// From now on the toolkit knows what screen readers see of lists. GUI thread.
void guiOfferListAccess();

/// Takes what screen readers are told, also where there are none, as in tests; empty: they are told again. GUI thread.
void guiListenToListAccess(std::function<void(QAccessibleEvent const& event)> listener);

/// Tells screen readers, if there are any, that something has become of the row. GUI thread.
void guiTellListAccess(guiWidgetListView& view, QAccessible::Event what, guiRowNumber row);
/// The same of a state that has changed.
void guiTellListState(guiWidgetListView& view, QAccessible::State what, guiRowNumber row);
