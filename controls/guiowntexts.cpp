// controls/guiowntexts.cpp: see guiowntexts.h.
#include "controls/guiowntexts.h"

#include "controls/guiowntexts-table.h"
#include "foundation/vela-threadrole.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QWidget>

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace {

std::atomic<std::size_t> theLanguage{0}; // a column of the table

QString fromTable(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

guiTextRow const* findRow(std::string_view english)
{
    auto const* const found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                           [english](guiTextRow const& row) { return row.front() == english; });
    return found == std::end(kTexts) ? nullptr : found;
}

std::optional<std::size_t> columnOf(QString const& language)
{
    QString const name = language.section(u'-', 0, 0).section(u'_', 0, 0).toLower();
    auto const found = std::find_if(kLanguages.begin(), kLanguages.end(),
                                    [&](std::string_view each) { return fromTable(each) == name; });
    return found == kLanguages.end() ? std::nullopt
                                     : std::optional(static_cast<std::size_t>(found - kLanguages.begin()));
}

/// The toolkit's own texts that stand in the table. Letters for the keyboard, marked with "&", are those of English.
class tableTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(char const*, char const* source, char const*, int) const override
    {
        std::string plain = source ? source : "";
        std::erase(plain, '&');
        guiTextRow const* const row = theLanguage != 0 ? findRow(plain) : nullptr;
        return row ? fromTable((*row)[theLanguage]) : QString();
    }
};

} // namespace

QString guiOwnText(std::string_view english)
{
    guiTextRow const* const row = findRow(english);
    return fromTable(row ? (*row)[theLanguage] : english);
}

Qt::LayoutDirection guiOwnDirection() { return kLanguages[theLanguage] == "ar" ? Qt::RightToLeft : Qt::LeftToRight; }

void guiUseOwnDirection(QWidget* widget) { widget->setLayoutDirection(guiOwnDirection()); }

void guiChooseLanguage(QStringList const& languages)
{
    theLanguage = 0;
    for (QString const& each : languages)
        if (std::optional<std::size_t> const column = columnOf(each)) {
            theLanguage = *column;
            return;
        }
}

// The translator that is installed last is asked first.
void guiStartLanguages(QCoreApplication& application)
{
    assertOnGuiThread();
    guiChooseLanguage(QLocale::system().uiLanguages());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight); // else the toolkit's file for the language would turn pages
    QCoreApplication::installTranslator(new tableTranslator(&application));
    auto toolkit = std::make_unique<QTranslator>();
    QString const folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!toolkit->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        return;
    toolkit->setParent(&application);
    QCoreApplication::installTranslator(toolkit.release());
}

std::vector<std::string_view> guiOwnTexts()
{
    std::vector<std::string_view> texts;
    for (guiTextRow const& row : kTexts)
        texts.push_back(row.front());
    return texts;
}

QStringList guiOwnLanguages()
{
    QStringList names;
    for (std::string_view each : kLanguages)
        names << fromTable(each);
    return names;
}
