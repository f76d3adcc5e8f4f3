// controls/guihtmlcontrolhidden.h: a named value of a page that is never shown.
#pragma once

#include "controls/guihtmlcontrol.h"

/// Has no widget and takes no room. GUI thread.
class guiHtmlControlHidden : public guiHtmlControl
{
public:
    explicit guiHtmlControlHidden(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlHidden; }
    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override;
    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;
    void paintTo(QPainter*, int, int, guiWidget*, QRegion const*) override {}
};
