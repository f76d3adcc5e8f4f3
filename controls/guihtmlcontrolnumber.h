// controls/guihtmlcontrolnumber.h: `input` of the types number and range.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guinumbertext.h"

/// A field for a number, or a slider, which always has one. In forms that have numbers the value is one, or null for an
/// empty field. GUI thread.
class guiHtmlControlNumber : public guiHtmlControlValue
{
public:
    static constexpr int kDefaultSize = 8;

    /// What the page's attributes say.
    struct numberShape
    {
        guiNumberRange range;
        int size = kDefaultSize; ///< visible width of a field in characters
        bool isSlider = false;
        bool isReadOnly = false;
        sstring placeholder;
    };

    explicit guiHtmlControlNumber(guiHtml* parent = nullptr) : guiHtmlControlValue(parent) {}

    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;
    /// A slider without limits goes from 0 to 100, and begins in the middle without a value.
    void init(numberShape const& shape);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;

protected:
    guiValueWidget* makeWidget(QWidget* parent) override;
    std::optional<QString> valueOf(QString const& text) const override;
    bool isNumber() const override { return true; }
    bool isOfFrequentKind() const override { return !m_shape.isSlider; }
    QString asShown(QString const& value) const override;
    bool hasRules() const override { return !m_shape.isSlider; }
    sstring findMistake() override;

private:
    QString nearest(double number) const;

    numberShape m_shape;
};
