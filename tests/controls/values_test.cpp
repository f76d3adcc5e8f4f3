// tests/controls/values_test.cpp: numbers, sliders, days, times, colours and bars: the values that they have and show,
// and what counts as wrong.
#include "controls/guicalendarpopup.h"
#include "controls/guihtmlcontrolgauge.h"
#include "controls/guihtmlcontrolnumber.h"
#include "controls/guinumbertext.h"
#include "controls/guiwidgetcolor.h"
#include "controls/guiwidgetgauge.h"
#include "controls/guiwidgetmoment.h"
#include "controls/guiwidgetnumber.h"
#include "controls/guiwidgetslider.h"
#include "tests/controls/shownpage.h"

#include <QCalendarWidget>
#include <QDate>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>

namespace {

std::string textOf(ShownPage& page, char const* name) { return page.control<guiHtmlControl>(name).getText().c_str(); }
std::string mistakeOf(ShownPage& page, char const* name)
{
    return page.control<guiHtmlControl>(name).getMistake().c_str();
}
void type(ShownPage& page, char const* name, char const* text)
{
    page.node(name)->getChildWidget()->findChild<QLineEdit*>()->setText(text);
}

class OtherLocale
{
public:
    explicit OtherLocale(QLocale const& locale) { QLocale::setDefault(locale); }
    ~OtherLocale() { QLocale::setDefault(m_before); }
    OtherLocale(OtherLocale const&) = delete;
    OtherLocale& operator=(OtherLocale const&) = delete;

private:
    QLocale m_before;
};

} // namespace

TEST(NumberTexts, AreReadAsAWholeAndWrittenInTheShortestWay)
{
    for (char const* text : {"", "x", "1x", "1,5", "1 2", "nan", "inf", "0x10"})
        EXPECT_FALSE(guiReadNumber(text)) << text;
    EXPECT_EQ(guiReadNumber(" -1.5e2 "), -150);
    EXPECT_EQ(guiNumberText(0.1), "0.1");
    EXPECT_EQ(guiNumberText(-150), "-150");
    EXPECT_EQ(guiNumberText(0), "0");
    EXPECT_EQ(guiReadNumber(guiNumberText(1e300)), 1e300);
    EXPECT_EQ(guiDecimalsOf("1.50"), 2);
    EXPECT_EQ(guiDecimalsOf("150"), 0);
}

TEST(NumberFields, KeepTheTextOfThePageAndTakeNoOther)
{
    ShownPage page("<input type=number name=n value=1.50><input type=number name=e>");
    EXPECT_EQ(textOf(page, "n"), "1.50");
    EXPECT_EQ(textOf(page, "e"), "");
    EXPECT_EQ(page.node("n")->setText("x", ""), 0);
    EXPECT_EQ(textOf(page, "n"), "1.50");
    EXPECT_EQ(page.node("n")->setText("2", ""), 1);
    EXPECT_EQ(textOf(page, "n"), "2");
}

TEST(NumberFields, ShowTheDecimalSignOfTheLanguageAndReadBoth)
{
    OtherLocale const german{QLocale(QLocale::German)};
    ShownPage page("<input type=number name=n value=1.5 max=2.5>");
    auto* field = page.widget<guiWidgetNumber>("n");
    EXPECT_EQ(field->edit()->text(), "1,5");
    type(page, "n", "2,25");
    EXPECT_EQ(textOf(page, "n"), "2.25");
    type(page, "n", "2.75");
    EXPECT_EQ(mistakeOf(page, "n"), "This has to be at most 2,5.");
}

TEST(NumberFields, StepWithinTheirLimitsWithTheDecimalsOfTheStep)
{
    ShownPage page("<input type=number name=n value=0.2 step=0.1 min=0 max=0.5><input type=number name=e min=7>");
    auto* field = page.widget<guiWidgetNumber>("n");
    field->stepBy(1);
    EXPECT_EQ(textOf(page, "n"), "0.3");
    field->stepBy(10);
    EXPECT_EQ(textOf(page, "n"), "0.5");
    field->stepBy(-1);
    EXPECT_EQ(textOf(page, "n"), "0.4");
    page.widget<guiWidgetNumber>("e")->stepBy(1);
    EXPECT_EQ(textOf(page, "e"), "7");
}

TEST(NumberFields, AreWrongOutsideOfTheirLimitsAndWithoutANumber)
{
    ShownPage page("<input type=number name=n min=1 max=5 required><input type=number name=o readonly value=9 max=5>");
    for (auto const& [text, mistake] : {std::pair("", "This has to be filled in."),
                                        {"0", "This has to be at least 1."},
                                        {"6", "This has to be at most 5."},
                                        {"-", "This is no number."},
                                        {"3", ""}}) {
        type(page, "n", text);
        EXPECT_EQ(mistakeOf(page, "n"), mistake) << text;
    }
    EXPECT_EQ(mistakeOf(page, "o"), "");
}

TEST(NumberFields, RefuseWhatCanBecomeNoNumber)
{
    ShownPage page("<input type=number name=n>");
    int cursor = 0;
    for (char const* text : {"", "-", "1.", "-1.5e", "1e-3"}) {
        QString copy = text;
        EXPECT_EQ(page.widget<guiWidgetNumber>("n")->validate(copy, cursor), QValidator::Acceptable) << text;
    }
    for (char const* text : {"x", "1,5", "--1", "1.2.3"}) {
        QString copy = text;
        EXPECT_EQ(page.widget<guiWidgetNumber>("n")->validate(copy, cursor), QValidator::Invalid) << text;
    }
}

TEST(Sliders, AlwaysHaveANumberOfTheirSteps)
{
    ShownPage page("<input type=range name=r><input type=range name=s min=1 max=2 step=0.25 value=1.6>"
                   "<input type=range name=odd min=5 max=1><input type=range name=off min=0 max=10 step=3 value=10>");
    EXPECT_EQ(textOf(page, "r"), "50");
    EXPECT_EQ(textOf(page, "s"), "1.5");
    EXPECT_EQ(textOf(page, "odd"), "5");
    EXPECT_EQ(textOf(page, "off"), "9");
    page.widget<guiWidgetSlider>("s")->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(textOf(page, "s"), "1.75");
    page.node("s")->setText("100", "");
    EXPECT_EQ(textOf(page, "s"), "2");
    EXPECT_EQ(page.node("s")->setText("", ""), 0);
}

TEST(Moments, AreReadInTheFormsWayAndTheUsersAndWrittenInTheForms)
{
    OtherLocale const german{QLocale(QLocale::German)};
    EXPECT_EQ(guiMomentFormat(true), "dd.MM.yyyy");
    for (char const* text : {"2026-03-09", "09.03.2026", "9.3.2026"})
        EXPECT_EQ(guiReadMoment(text, true), QString("2026-03-09")) << text;
    for (char const* text : {"", "31.2.2026", "2026-13-01", "tomorrow", "2026-03-09 "})
        EXPECT_EQ(guiReadMoment(text, true).has_value(), QString(text).endsWith(' ')) << text;
    EXPECT_EQ(guiReadMoment("7:05", false), QString("07:05"));
    EXPECT_EQ(guiReadMoment("07:05:30", false), QString("07:05:30"));
    EXPECT_FALSE(guiReadMoment("24:00", false));
}

TEST(Moments, HaveAFormatOfFiguresInEveryLanguage)
{
    for (QLocale const& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        OtherLocale const other(locale);
        QString const format = guiMomentFormat(true);
        EXPECT_EQ(format.size(), 10) << locale.name().toStdString() << " " << format.toStdString();
        EXPECT_EQ(guiReadMoment(QDate(2026, 11, 22).toString(format), true), QString("2026-11-22"));
    }
}

TEST(Moments, ShowWhatTheUserReadsAndSayWhatIsWrong)
{
    OtherLocale const american(QLocale(QLocale::English, QLocale::UnitedStates));
    ShownPage page(
        "<input type=date name=d value=2026-11-22 min=2026-01-01 max=2026-12-31><input type=time name=t max=12:00>");
    auto* field = page.widget<guiWidgetMoment>("d");
    EXPECT_EQ(field->text(), "11/22/2026");
    EXPECT_EQ(textOf(page, "d"), "2026-11-22");
    for (auto const& [text, mistake] : {std::pair("12/31/2025", "This must not be before 01/01/2026."),
                                        {"1/1/2027", "This must not be after 12/31/2026."},
                                        {"2/30/2026", "This is no date."},
                                        {"", ""}}) {
        field->setText(text);
        EXPECT_EQ(mistakeOf(page, "d"), mistake) << text;
    }
    page.widget<guiWidgetMoment>("t")->setText("12:01");
    EXPECT_EQ(mistakeOf(page, "t"), "This must not be after 12:00.");
}

TEST(Moments, TheCalendarLivesUntilItsClickIsOver)
{
    QLineEdit field;
    QPointer<guiCalendarPopup> popup = new guiCalendarPopup(&field);
    popup->showBelow(&field);
    auto const deleteWhatWaits = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
    bool isThere = false;
    QObject::connect(popup, &guiCalendarPopup::chosen, &field, [&] {
        deleteWhatWaits(); // as a handler does that is waited for
        isThere = !popup.isNull();
    });
    emit popup->findChild<QCalendarWidget*>()->clicked(QDate(2026, 3, 12));
    EXPECT_TRUE(isThere);
    deleteWhatWaits();
    EXPECT_TRUE(popup.isNull());
}

TEST(Colours, AreNamesOrFiguresAndAlwaysThere)
{
    ShownPage page("<input type=color name=c value=CornflowerBlue><input type=color name=d value=none><input "
                   "type=color name=e value='#f80'>");
    EXPECT_EQ(textOf(page, "c"), "#6495ED");
    EXPECT_EQ(textOf(page, "d"), "#000000");
    EXPECT_EQ(textOf(page, "e"), "#FF8800");
    EXPECT_EQ(page.node("c")->setText("no colour", ""), 0);
    EXPECT_EQ(page.node("c")->setText("lime", ""), 1);
    EXPECT_EQ(page.widget<guiWidgetColor>("c")->value(), "#00FF00");
}

TEST(Gauges, AreAsFullAsTheirValueSaysAndMoveWithoutAnEndWithoutOne)
{
    ShownPage page("<progress name=p value=30 max=120></progress><progress name=e></progress><meter name=m value=5 "
                   "min=0 max=10></meter>");
    auto* bar = page.widget<guiWidgetGauge>("p");
    EXPECT_EQ(bar->QProgressBar::value() * 4, bar->maximum());
    EXPECT_EQ(page.widget<guiWidgetGauge>("e")->maximum(), 0);
    EXPECT_EQ(page.widget<guiWidgetGauge>("m")->QProgressBar::value() * 2, page.widget<guiWidgetGauge>("m")->maximum());
    page.node("p")->setText("", "");
    EXPECT_EQ(bar->maximum(), 0);
    page.node("p")->setText("500", "");
    EXPECT_EQ(bar->QProgressBar::value(), bar->maximum());
}

TEST(Gauges, OfMetersAreGoodWhereTheBestValueLies)
{
    guiGaugeShape shape{true, 0, 1, 0.3, 0.7, 0.9};
    EXPECT_EQ(guiStateOf(shape, 0.8), guiGaugeState::kGood);
    EXPECT_EQ(guiStateOf(shape, 0.5), guiGaugeState::kFair);
    EXPECT_EQ(guiStateOf(shape, 0.1), guiGaugeState::kPoor);
    shape.best = 0.5;
    EXPECT_EQ(guiStateOf(shape, 0.5), guiGaugeState::kGood);
    EXPECT_EQ(guiStateOf(shape, 0.1), guiGaugeState::kFair);
}

TEST(Values, AreToldWhenTheUserChangesThemAndOnlyThen)
{
    LinkWriter<guiHtmlControlNumber> control;
    control.initText("3");
    control.setAction("event://c");
    control.onChange();
    EXPECT_EQ(control.links.size(), 1u) << "the first value has not been told";
    control.onChange();
    EXPECT_EQ(control.links.size(), 1u);
    EXPECT_EQ(control.setText("3.0", ""), 1);
    control.onChange();
    EXPECT_EQ(control.links.size(), 1u);
}

TEST(Values, OutliveTheWindowAsTheUserLeftThem)
{
    ShownPage page(
        "<input type=number name=n value=3><input type=range name=r><input type=date name=d><progress name=p value=1>");
    type(page, "n", "12x");
    page.widget<guiWidgetSlider>("r")->setValue(7);
    page.widget<guiWidgetMoment>("d")->setText("2026-1-2");
    page.window.root.destroyWidget();
    EXPECT_EQ(page.node("n")->getPreferredWidth(), 0);
    page.window.widget = page.window.root.createWidget(0);
    page.layOut();
    EXPECT_EQ(textOf(page, "n"), "12x");
    EXPECT_EQ(page.widget<guiWidgetSlider>("r")->QSlider::value(), 7);
    EXPECT_EQ(textOf(page, "d"), "2026-01-02");
    std::unique_ptr<guiHtml> copy(page.node("r")->Clone(nullptr));
    EXPECT_EQ(dynamic_cast<guiHtmlControlNumber&>(*copy).getText(), sstring("7"));
}
