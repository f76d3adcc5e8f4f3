// tests/e2e/field.h: a text field on a page, as thin as can be: the native widget with its node, without what form
// fields do besides (values, links, forms).
#pragma once

#include "controls/guidispatch.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guiwidgetlineedit.h"

#include <atomic>

/// Stands where layout puts it. All but `triggers` belongs to the GUI thread.
class Field : public guiHtmlControlEdit
{
public:
    static constexpr int kWidth = 150;
    static constexpr int kHeight = 30;

    using guiHtmlControlEdit::operator=;
    explicit Field(char const* name, int tabIndex = kNoTabIndex)
    {
        setString(kStringName, name);
        setTabIndex(tabIndex);
        m.fixed = {kWidth, kHeight, kUnitPixels, kUnitPixels, kWidth, kHeight};
    }
    ~Field() override { Field::destroyChildWidget(); }

    QWidget* getChildWidget() override { return widget_; }
    void createChildWidget() override
    {
        QWidget* window = getTopLevelWidget();
        if (widget_ || !window)
            return;
        widget_ = new guiWidgetLineEdit(window);
        widget_->owner = this;
        widget_->show();
        m.tabOrderDirty = 1;
    }
    void destroyChildWidget() override { guiDestroyWrapper(widget_); }
    void setRect(guiRect* rect) override
    {
        m.rect = *rect;
        createChildWidget();
        guiRect place;
        getRectInWidget(&place);
        if (widget_)
            widget_->setGeometry(place.left, place.top, place.width, place.height);
    }
    int getPreferredWidth() override { return kWidth; }
    int getHeightEstimate(unsigned long) override { return kHeight; }

    void onChange(sstring const& text) override { content = text; }
    void triggerNow() override { ++triggers; }

    sstring content;
    std::atomic<int> triggers{0};

private:
    guiWidgetLineEdit* widget_ = nullptr;
};
