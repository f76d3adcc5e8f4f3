// page/guihtmltext.h: a run of page text with in-line codes for its formatting.
#pragma once

#include "page/guihtml.h"

/// A run of text. Codes between "[[" and "]]" switch its formatting.
class guiHtmlText : public guiHtml
{
public:
    explicit guiHtmlText(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeText; }
    guiHtml* Clone(guiHtml* parent) override;
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;

    /// The text with its codes.
    sstring const& getText() const { return m_text; }
    /// The text to append to: the parser writes into it. The caches of earlier measurements compare it.
    sstring& editText() { return m_text; }

private:
    sstring m_text;
};
