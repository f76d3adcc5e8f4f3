// controls/guihtmlcontrolmoment.h: `input` of the types date and time.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guiwidgetmoment.h"

/// A field for a day, "2026-11-22", or a time of day, "09:30" or "09:30:15", or neither, "". GUI thread.
class guiHtmlControlMoment : public guiHtmlControlValue
{
public:
    explicit guiHtmlControlMoment(guiHtml* parent = nullptr) : guiHtmlControlValue(parent) {}

    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;
    /// Limits that are none are left out.
    void init(guiMomentShape const& shape, bool isReadOnly);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;

protected:
    guiValueWidget* makeWidget(QWidget* parent) override;
    std::optional<QString> valueOf(QString const& text) const override;
    bool hasRules() const override { return true; }
    sstring findMistake() override;

private:
    guiMomentShape m_shape;
    bool m_isReadOnly = false;
};
