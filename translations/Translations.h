// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace zib {

/// The first of the languages that the program speaks, as its code: "de" for {"it-IT", "de-AT", "fr"}.
/// English when it speaks none of them.
/// @param wanted as QLocale::uiLanguages() gives them, the preferred one first
QString spokenLanguage(const QStringList& wanted);

/// From now on texts are in that language, those of the toolkit too where its translations are installed, and
/// numbers get the right form of what they count, in English as well. Main thread, once the application
/// object is there and before the first text is made.
/// @param wanted see spokenLanguage()
void installTranslations(const QStringList& wanted);

} // namespace zib
