// tests/e2e/field.h: a text field on a page, as thin as can be: the native widget with its node, without what form
// fields do besides (values, links, forms).
#pragma once

#include "controls/guieventscope.h"
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

    QWidget* getChildWidget() override { return m_widget; }
    void createChildWidget() override
    {
        QWidget* window = getTopLevelWidget();
        if (m_widget || !window)
            return;
        m_widget = new guiWidgetLineEdit(window);
        m_widget->owner = this;
        m_widget->show();
        m.tabOrderDirty = 1;
    }
    void destroyChildWidget() override { guiDestroyWrapper(m_widget); }
    void setRect(guiRect* rect) override
    {
        m.rect = *rect;
        createChildWidget();
        guiRect place;
        getRectInWidget(&place);
        if (m_widget)
            m_widget->setGeometry(place.left, place.top, place.width, place.height);
    }
    int getPreferredWidth() override { return kWidth; }
    int getHeightEstimate(unsigned long) override { return kHeight; }

    void onChange(sstring const& text) override { content = text; }
    void triggerNow() override { ++triggers; }

    sstring content;
    std::atomic<int> triggers{0};

private:
    guiWidgetLineEdit* m_widget = nullptr;
};
