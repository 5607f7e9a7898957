#pragma once

#include <QStringList>

class QCoreApplication;

namespace Panorel {

/// Shows the program in the first of the user's languages that it speaks. The texts in the sources
/// are English, so for English there is nothing to load, and nothing for a language without a
/// translation. Call it before the first text is made; the language then stays for the run.
///
/// `languages` in the user's order, as QLocale::uiLanguages() has them ("de-DE", "de", "C").
void installTranslations(QCoreApplication &application, const QStringList &languages);

} // namespace Panorel
