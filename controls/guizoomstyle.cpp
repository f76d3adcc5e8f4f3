// controls/guizoomstyle.cpp: see guizoomstyle.h.
#include "controls/guizoomstyle.h"

#include "foundation/vela-threadrole.h"
#include "page/guizoomedlength.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QWidget>
#include <algorithm>
#include <iterator>

namespace {

constexpr QStyle::PixelMetric kScaled[] = {
    QStyle::PM_IndicatorWidth,
    QStyle::PM_IndicatorHeight,
    QStyle::PM_ExclusiveIndicatorWidth,
    QStyle::PM_ExclusiveIndicatorHeight,
    QStyle::PM_CheckBoxLabelSpacing,
    QStyle::PM_RadioButtonLabelSpacing,
    QStyle::PM_ButtonMargin,
    QStyle::PM_MenuButtonIndicator,
    QStyle::PM_SliderThickness,
    QStyle::PM_SliderControlThickness,
    QStyle::PM_SliderLength,
    QStyle::PM_TabBarTabHSpace,
    QStyle::PM_TabBarTabVSpace,
    QStyle::PM_HeaderMargin,
    QStyle::PM_HeaderMarkSize,
    QStyle::PM_SmallIconSize,
    QStyle::PM_ListViewIconSize,
    QStyle::PM_TabBarIconSize,
    QStyle::PM_ButtonIconSize,
    QStyle::PM_MenuBarItemSpacing,
    QStyle::PM_FocusFrameHMargin,
};

/// The application's style with larger or smaller parts. Takes the style over.
class zoomStyle : public QProxyStyle
{
public:
    zoomStyle(QStyle* style, unsigned percent) : QProxyStyle(style), m_percent(percent) {}

    int pixelMetric(PixelMetric metric, QStyleOption const* option, QWidget const* widget) const override
    {
        int const own = QProxyStyle::pixelMetric(metric, option, widget);
        bool const isScaled = std::find(std::begin(kScaled), std::end(kScaled), metric) != std::end(kScaled);
        return isScaled ? guiZoomedLength(own, m_percent) : own;
    }

private:
    unsigned m_percent;
};

/// The style of one zoom, which all widgets share; goes with the application.
QStyle* styleFor(unsigned percent) TARN_ON(velaGuiRole)
{
    QString const name = QStringLiteral("zoom-%1-%2").arg(QApplication::style()->name()).arg(percent);
    if (auto* known = qApp->findChild<zoomStyle*>(name, Qt::FindDirectChildrenOnly))
        return known;
    QStyle* const own = QStyleFactory::create(QApplication::style()->name());
    if (!own)
        return nullptr;
    auto* made = new zoomStyle(own, percent);
    made->setObjectName(name);
    made->setParent(qApp);
    return made;
}

bool hasZoomStyle(QWidget const* widget) { return dynamic_cast<zoomStyle const*>(widget->style()) != nullptr; }

} // namespace

void guiZoomWidget(QWidget* widget, unsigned percent)
{
    assertOnGuiThread();
    if (percent == kUnzoomed && !hasZoomStyle(widget))
        return;
    QStyle* const wanted = percent == kUnzoomed ? nullptr : styleFor(percent);
    if (widget->style() != wanted)
        widget->setStyle(wanted);
}
