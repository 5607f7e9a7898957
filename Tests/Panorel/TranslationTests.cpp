#include "Panorel/FixedAction.h"
#include "Panorel/PanelModel.h"
#include "Panorel/StatusMenu.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Support/TestHome.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

using namespace Panorel;

namespace {

const QString translations = QStringLiteral(PANOREL_SOURCES "/Sources/Panorel/Translations");

} // namespace

class TranslationTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsTranslated()
    {
        for (const QString &name : QDir(translations).entryList({QStringLiteral("*.ts")})) {
            const QString path = translations + u'/' + name;
            const QTemporaryDir folder;
            const QString copy = folder.filePath(name);
            QVERIFY(QFile::copy(path, copy));
            QProcess update;
            update.start(QStringLiteral(PANOREL_SOURCES "/scripts/update-translations"), {copy});
            QVERIFY(update.waitForFinished());
            QVERIFY2(update.exitCode() == 0, update.readAllStandardError().constData());
            // Of the file brought up to date: a text that is not in it yet is unfinished there.
            const QByteArray texts = readFile(copy);
            for (const char *fault : {"<translation type", "<translation></", "<numerusform></"})
                QVERIFY2(!texts.contains(fault), fault);
            QVERIFY2(texts == readFile(path), "run scripts/update-translations");
        }
    }

    void theFirstLanguageThatIsSpokenIsShown()
    {
        const std::pair<QStringList, bool> rows[] = {
            {QLocale(QStringLiteral("de_AT")).uiLanguages(), true},
            {{QStringLiteral("br"), QStringLiteral("de")}, true}, // none of that, then German
            {{QStringLiteral("en-GB"), QStringLiteral("de")}, false},
            {{QString(), QStringLiteral("../de"), QStringLiteral("d")}, false}}; // no languages
        for (const auto &[languages, isGerman] : rows) {
            installTranslations(*qApp, languages);
            PanelModel model;
            model.onQuit = [] {};
            StatusMenu menu(model, [] {});
            QCOMPARE(menu.menu().actions().last()->text(),
                     isGerman ? QStringLiteral("Panorel beenden") : QStringLiteral("Quit Panorel"));
            QCOMPARE(nameOf(FixedAction::Stash),
                     isGerman ? QStringLiteral("Wegräumen") : QStringLiteral("Stash"));
            qDeleteAll(qApp->findChildren<QTranslator *>());
        }
    }
};

QTEST_MAIN(TranslationTests)
#include "TranslationTests.moc"
