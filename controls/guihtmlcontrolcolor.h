// controls/guihtmlcontrolcolor.h: `input` of type color.
#pragma once

#include "controls/guihtmlcontrolvalue.h"

/// Always has a colour, "#RRGGBB" in capital letters, black when the page gives none. GUI thread.
class guiHtmlControlColor : public guiHtmlControlValue
{
public:
    explicit guiHtmlControlColor(guiHtml* parent = nullptr) : guiHtmlControlValue(parent) {}

    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override;
    /// The first colour, by name or in figures.
    void init(sstring const& color);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;

protected:
    guiValueWidget* makeWidget(QWidget* parent) override;
    std::optional<QString> valueOf(QString const& text) const override;
};
