// page/guihtmlsize.cpp: gives every node its rectangle. FIXME: nothing is laid out yet.
#include "page/guihtml.h"

void guiHtml::setRect(guiRect* rect) { m.rect = *rect; }
int guiHtml::updateLayout(int) { return 1; }
int guiHtml::getPreferredWidth() { return 0; }
int guiHtml::getHeightEstimate(unsigned long) { return 0; }
int guiHtml::findLayer(unsigned*, unsigned*, unsigned*, int*, guiAlignment*) { return 0; }
int guiHtml::calcDynamicLayout() { return 0; }
void guiHtml::updateActiveWidths() {}
void guiHtml::updateActiveHeights() {}
void guiHtml::updateSpringyHeights() {}
void guiHtml::updateScrollbarRanges() {}
int guiHtml::getChildHeight(unsigned, unsigned long, unsigned long) { return 0; }
