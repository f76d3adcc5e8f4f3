// controls/guiowntexts.h: the texts that windows have by themselves, in the user's language.
#pragma once

#include <QString>
#include <QStringList>

#include <string_view>
#include <vector>

class QCoreApplication;
class QWidget;

/// The text in the language that was chosen; English where that has none. Any thread.
QString guiOwnText(std::string_view english);
/// The direction in which that language is written. Any thread.
Qt::LayoutDirection guiOwnDirection();
/// Lays out a dialog or a bar of our own in that direction.
void guiUseOwnDirection(QWidget* widget);

/// Chooses the first of the languages, written like "pt-BR", that there are texts for; English for none. Before any
/// window. GUI thread.
void guiChooseLanguage(QStringList const& languages);

/// Chooses the languages of the user's locale and has the toolkit use them for its own texts, from its files where they
/// are installed, else from ours. Pages stay laid out from left to right. GUI thread, once for each application.
void guiStartLanguages(QCoreApplication& application);

/// All texts there are, in English, and the languages that they are in; for tests.
std::vector<std::string_view> guiOwnTexts();
QStringList guiOwnLanguages();
