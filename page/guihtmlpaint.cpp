// page/guihtmlpaint.cpp: paints nodes and passes them the mouse. FIXME: nothing is painted yet.
#include "page/guihtml.h"

void guiHtml::paintBorder(QPainter*, guiRect*, int) {}
void guiHtml::paintTo(QPainter*, int, int, guiWidget*, QRegion const*) {}
void guiHtml::paintCornerTo(QPainter*, int, int, guiWidget*, QRegion const*) {}
void guiHtml::paintChildrenTo(QPainter*, int, int, guiWidget*, QRegion const*) {}
void guiHtml::update() {}
int guiHtml::setBackgroundImage(sstring const&) { return 0; }
guiHtml* guiHtml::hitTest(int*, int*) { return nullptr; }
int guiHtml::canHitTest() { return 0; }
void guiHtml::onMouseOn() {}
void guiHtml::onMouseOff() {}
void guiHtml::onMouseMove(int, int) {}
void guiHtml::onMouseUp() {}
void guiHtml::onMouseDown(int, int) {}
void guiHtml::onScrollX(int) {}
void guiHtml::onScrollY(int) {}
