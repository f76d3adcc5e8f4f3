// controls/guihtmlcontroledit.h: text, password and file fields, and text areas.
#pragma once

#include "controls/guihtmlcontrol.h"

enum guiEditType : int
{
    kEditText = 0,
    kEditPassword = 1,
    kEditFile = 2,
};

/// A field of text: one line (rows 1) or several.
class guiHtmlControlEdit : public guiHtmlControl
{
public:
    static constexpr int kDefaultSize = 20;
    static constexpr int kDefaultRows = 2;

    /// What the page's attributes say.
    struct shape_t
    {
        guiEditType type = kEditText;
        int size = kDefaultSize; ///< visible width in characters
        int maxLength = 0;       ///< stored, never applied
        int rows = 1;            ///< visible lines
    };

    explicit guiHtmlControlEdit(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlEdit; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    shape_t const& getShape() const { return m_shape; }
    void init(shape_t const& shape) { m_shape = shape; }

    /// The user changed the text: with a link, the node keeps the text and follows the link.
    virtual void onChange(sstring const& text);

private:
    shape_t m_shape;
};
