#include "Panorel/Translations/InterfaceLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace Panorel {

namespace {

/// False where there is no such file.
bool install(QCoreApplication &application, const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    // The exact file: QTranslator itself would fall back on shorter names.
    if (!translator->load(QStringLiteral("%1/%2.qm").arg(folder, name)))
        return false;
    translator->setParent(&application);
    return QCoreApplication::installTranslator(translator.release());
}

} // namespace

void installTranslations(QCoreApplication &application, const QStringList &languages)
{
    for (QString language : languages) {
        language.replace(u'-', u'_');
        // Who prefers English to what comes later in the list has it without a file.
        if (language == u"C" || language.section(u'_', 0, 0) == u"en")
            return;
        if (!install(application, QStringLiteral("panorel_") + language,
                     QStringLiteral(":/translations")))
            continue;
        // Buttons of Qt's own dialogs and the names of keys, where the system has them.
        install(application, QStringLiteral("qtbase_") + language,
                QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        return;
    }
}

} // namespace Panorel
