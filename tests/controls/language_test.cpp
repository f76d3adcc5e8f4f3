// tests/controls/language_test.cpp: the texts that windows have by themselves, in the languages of users.
#include "tests/controls/shownpage.h"

#include "controls/guifindbar.h"
#include "controls/guiowntexts.h"
#include "foundation/vela-threadrole.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <algorithm>
#include <string>

namespace {

class Language : public testing::Test
{
protected:
    ~Language() override { guiChooseLanguage({}); }
};

std::string own(char const* english) { return guiOwnText(english).toStdString(); }

TEST_F(Language, EveryTextIsThereInEveryLanguageWithItsPlaces)
{
    for (QString const& language : guiOwnLanguages()) {
        guiChooseLanguage({language});
        for (std::string_view english : guiOwnTexts()) {
            QString const text = guiOwnText(english);
            EXPECT_FALSE(text.isEmpty()) << english << " in " << language.toStdString();
            for (char const* place : {"%1", "%2"})
                EXPECT_EQ(text.count(QLatin1String(place)), english.find(place) == std::string_view::npos ? 0 : 1)
                    << english << " in " << language.toStdString();
        }
    }
}

TEST_F(Language, EveryTextThatTheSourcesAskForIsInTheTable)
{
    std::vector<std::string_view> const known = guiOwnTexts();
    QRegularExpression const asked(QStringLiteral("(?:guiOwnText\\(|addItem\\(\\*menu, )\"([^\"]+)\""));
    int count = 0;
    for (char const* folder : {"controls", "runtime", "script"}) {
        QDir const sources(QStringLiteral(TARN_SOURCE_FOLDER "/") + QLatin1String(folder));
        for (QString const& name : sources.entryList({QStringLiteral("*.cpp")})) {
            QFile file(sources.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            for (auto found = asked.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext(); ++count) {
                QString const text = found.next().captured(1).replace(QLatin1String("\\u2026"), QChar(0x2026));
                EXPECT_NE(std::find(known.begin(), known.end(), text.toStdString()), known.end())
                    << text.toStdString() << " in " << name.toStdString();
            }
        }
    }
    EXPECT_GT(count, 20);
}

TEST_F(Language, TheFirstThatIsKnownCountsAndEnglishElse)
{
    guiChooseLanguage({QStringLiteral("fi"), QStringLiteral("fr-CA"), QStringLiteral("de")});
    EXPECT_EQ(own("Cancel"), "Annuler");
    guiChooseLanguage({QStringLiteral("de_AT")});
    EXPECT_EQ(own("Cancel"), "Abbrechen");
    guiChooseLanguage({QStringLiteral("en-GB"), QStringLiteral("de")});
    EXPECT_EQ(own("Cancel"), "Cancel");
    guiChooseLanguage({QStringLiteral("C")});
    EXPECT_EQ(own("Cancel"), "Cancel");
    EXPECT_EQ(own("Not in the table"), "Not in the table");
}

TEST_F(Language, OnlyArabicIsWrittenFromTheRight)
{
    for (QString const& language : guiOwnLanguages()) {
        guiChooseLanguage({language});
        EXPECT_EQ(guiOwnDirection(), language == u"ar" ? Qt::RightToLeft : Qt::LeftToRight);
    }
}

TEST_F(Language, TheFindBarSpeaksIt)
{
    guiChooseLanguage({QStringLiteral("ar")});
    assertOnGuiThread();
    ShownPage shown("<html><body><p>text</p></body></html>");
    shown.window.widget->openFindBar();
    auto* bar = shown.window.widget->findChild<guiFindBar*>();
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->layoutDirection(), Qt::RightToLeft);
    auto const* field = bar->findChild<QLineEdit*>();
    EXPECT_EQ(field->placeholderText(), guiOwnText("Find on this page"));
    EXPECT_NE(field->placeholderText(), QStringLiteral("Find on this page"));
    bar->show();
    QCoreApplication::processEvents();
    EXPECT_GT(field->x(), bar->findChild<QCheckBox*>()->x());
    EXPECT_EQ(shown.window.widget->layoutDirection(), Qt::LeftToRight);
}

/// What a program of this locale shows: a text of ours, a button and an item of a menu of the toolkit's.
struct localeCase
{
    std::vector<std::pair<char const*, char const*>> environment;
    char const* find;
    char const* cancel;
    char const* copy;
};

/// Runs the test below in a process of its own, which reads its locale from the environment.
int runWith(localeCase const& each)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (char const* name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"})
        environment.remove(QLatin1String(name));
    for (auto const& [name, value] : each.environment)
        environment.insert(QLatin1String(name), QLatin1String(value));
    environment.insert(QStringLiteral("WANTED_FIND"), QString::fromUtf8(each.find));
    environment.insert(QStringLiteral("WANTED_CANCEL"), QString::fromUtf8(each.cancel));
    environment.insert(QStringLiteral("WANTED_COPY"), QString::fromUtf8(each.copy));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=Locale.*")});
    process.waitForFinished();
    return process.exitCode();
}

TEST_F(Language, ComesFromTheLocale)
{
    localeCase const kCases[] = {
        {{{"LANG", "de_DE.UTF-8"}}, "Suchen", "Abbrechen", "Kopieren"},
        {{{"LC_ALL", "fr_FR.UTF-8"}, {"LANG", "de_DE.UTF-8"}}, "Rechercher", "Annuler", "Copier"},
        {{{"LC_MESSAGES", "es_ES.UTF-8"}, {"LANG", "de_DE.UTF-8"}}, "Buscar", "Cancelar", "Copiar"},
        {{{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "ja:de"}}, "検索", "キャンセル", "コピー"},
        {{{"LANG", "ar_EG.UTF-8"}}, "بحث", "إلغاء", "نسخ"},
        {{{"LC_ALL", "C.UTF-8"}}, "Find", "Cancel", "Copy"},
    };
    for (localeCase const& each : kCases)
        EXPECT_EQ(runWith(each), 0) << each.find;
}

QString plain(QString text) { return text.remove(u'&').section(u'\t', 0, 0).section(u'(', 0, 0).trimmed(); }

TEST(Locale, IsThatOfTheEnvironment)
{
    guiStartLanguages(*qApp);
    auto const wanted = [](char const* variable,
                           char const* english) { // as the test above wants it, or in any language
        return qEnvironmentVariable(variable, guiOwnText(english));
    };
    EXPECT_EQ(guiOwnText("Find"), wanted("WANTED_FIND", "Find"));
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Cancel);
    EXPECT_EQ(plain(box.button(QMessageBox::Cancel)->text()), wanted("WANTED_CANCEL", "Cancel"));
    QLineEdit field;
    std::unique_ptr<QMenu> const menu(field.createStandardContextMenu());
    QList<QAction*> const items = menu->actions();
    EXPECT_TRUE(std::any_of(items.begin(), items.end(),
                            [&](QAction const* each) { return plain(each->text()) == wanted("WANTED_COPY", "Copy"); }));
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

} // namespace
