#include "Panorel/FixedAction.h"
#include "Panorel/Panel/PanelView.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/StatusMenu.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/UI/ActionControl.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/TimeInWords.h"
#include "Support/InMemoryPlatform.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

using namespace Panorel;

namespace {

const QString translations = QStringLiteral(PANOREL_SOURCES "/Sources/Panorel/Translations");

QByteArray contents(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

/// What a translation must have in common with its text: the values put in, and the dots that
/// promise a window.
QStringList marksOf(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("%n|%\\d|…$"));
    QStringList marks;
    for (auto found = mark.globalMatch(text); found.hasNext();)
        marks << found.next().captured();
    marks.sort();
    return marks;
}

/// "text: what is wrong with its translation" for each that is not as it should be.
QStringList faultsOf(const QByteArray &file)
{
    QStringList faults;
    QString source;
    QXmlStreamReader xml(file);
    const auto check = [&](const QString &translation) {
        if (translation.trimmed().isEmpty())
            faults << source + QStringLiteral(": empty");
        else if (marksOf(translation) != marksOf(source))
            faults << source + QStringLiteral(": other marks");
    };
    bool isPlural = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto state = xml.attributes().value(QStringLiteral("type"));
        if (!state.isEmpty())
            faults << source + QStringLiteral(": ") + state.toString();
        if (xml.name() == u"message")
            isPlural = xml.attributes().hasAttribute(QStringLiteral("numerus"));
        else if (xml.name() == u"source")
            source = xml.readElementText();
        else if (xml.name() == u"numerusform" || (xml.name() == u"translation" && !isPlural))
            check(xml.readElementText());
    }
    if (xml.hasError())
        faults << xml.errorString();
    return faults;
}

} // namespace

class TranslationTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsTranslated_data()
    {
        QTest::addColumn<QString>("path");
        for (const QFileInfo &file : QDir(translations).entryInfoList({QStringLiteral("*.ts")}))
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }

    void everyTextIsTranslated()
    {
        QFETCH(QString, path);
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QFileInfo(path).fileName());
        QVERIFY(QFile::copy(path, copy));
        QProcess update;
        update.start(QStringLiteral(PANOREL_SOURCES "/scripts/update-translations"), {copy});
        QVERIFY(update.waitForFinished());
        QVERIFY2(update.exitCode() == 0, update.readAllStandardError().constData());
        // Of the file brought up to date: a text that is not in it yet is unfinished there.
        QCOMPARE(faultsOf(contents(copy)).join(u'\n'), QString());
        QVERIFY2(contents(copy) == contents(path), "run scripts/update-translations");
    }

    void theFirstLanguageThatIsSpokenIsShown_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<bool>("isGerman");
        const auto row = [](const char *name, const QStringList &languages, bool isGerman) {
            QTest::newRow(name) << languages << isGerman;
        };
        row("Austria", QLocale(QStringLiteral("de_AT")).uiLanguages(), true);
        row("Germany", QLocale(QStringLiteral("de_DE")).uiLanguages(), true);
        row("one that is not there, then German", {QStringLiteral("br"), QStringLiteral("de")},
            true);
        row("English before German", {QStringLiteral("en-GB"), QStringLiteral("de")}, false);
        row("none", {QStringLiteral("C"), QStringLiteral("de")}, false);
        row("one that is not there", {QStringLiteral("br-FR"), QStringLiteral("br")}, false);
        row("no language at all", {QString(), QStringLiteral("../de"), QStringLiteral("d")}, false);
        row("empty", {}, false);
    }

    void theFirstLanguageThatIsSpokenIsShown()
    {
        QFETCH(QStringList, languages);
        QFETCH(bool, isGerman);
        installTranslations(*qApp, languages);
        InMemoryPlatform platform;
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        PanelModel model;
        model.setHasPermission(true);
        model.setWindowCount(1);
        model.onRestoreNow = model.onQuit = [] {};
        PanelView view(model, prefs, [](const HotKeyCombo &combo) { return combo.pcString(); });
        QStringList titles;
        for (const ActionControl *control : view.findChildren<ActionControl *>()) {
            if (control->isVisibleTo(&view))
                titles << control->title();
        }
        const auto *status = view.findChild<StatusLine *>(QStringLiteral("status"));
        StatusMenu menu(model, [] {});
        QCOMPARE(status->text(), isGerman ? QStringLiteral("1 Fenster gemerkt")
                                          : QStringLiteral("1 windows remembered"));
        QCOMPARE(titles.join(u'|'), isGerman
                                        ? QStringLiteral("Jetzt wiederherstellen|Panorel beenden")
                                        : QStringLiteral("Restore Now|Quit Panorel"));
        QCOMPARE(menu.menu().actions().last()->text(), titles.last());
        QCOMPARE(timeInWords({}, {}),
                 isGerman ? QStringLiteral("gerade eben") : QStringLiteral("just now"));
        QCOMPARE(nameOf(FixedAction::Stash),
                 isGerman ? QStringLiteral("Wegräumen") : QStringLiteral("Stash"));
    }

    void cleanup() { qDeleteAll(qApp->findChildren<QTranslator *>()); }
};

QTEST_MAIN(TranslationTests)
#include "TranslationTests.moc"
