// controls/guihtmlcontrolhidden.h: a named value that a page carries along and never shows.
#pragma once

#include "controls/guihtmlcontrol.h"

class guiHtmlControlHidden : public guiHtmlControl
{
public:
    explicit guiHtmlControlHidden(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlHidden; }
    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override;
    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;
    void paintTo(QPainter*, int, int, guiWidget*, QRegion const*) override {}
};
