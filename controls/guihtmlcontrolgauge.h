// controls/guihtmlcontrolgauge.h: the elements `progress`, how far something has come, and `meter`, how much there is
// of something.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guiwidgetgauge.h"

/// A bar that script moves. A progress without a value moves without an end. GUI thread.
class guiHtmlControlGauge : public guiHtmlControlValue
{
public:
    explicit guiHtmlControlGauge(guiHtml* parent = nullptr) : guiHtmlControlValue(parent) {}

    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;
    void init(guiGaugeShape const& shape) { m_shape = shape; }

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;

protected:
    guiValueWidget* makeWidget(QWidget* parent) override;
    std::optional<QString> valueOf(QString const& text) const override;
    bool isNumber() const override { return true; }

private:
    guiGaugeShape m_shape;
};
