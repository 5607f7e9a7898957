#include "Panorel/FixedAction.h"
#include "Panorel/Panel/PanelView.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/StatusMenu.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/TimeInWords.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestHome.h"

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
            QCOMPARE(faultsOf(readFile(copy)).join(u'\n'), QString());
            QVERIFY2(readFile(copy) == readFile(path), "run scripts/update-translations");
        }
    }

    void theFirstLanguageThatIsSpokenIsShown()
    {
        const struct {
            const char *name;
            QStringList languages;
            bool isGerman;
        } rows[] = {
            {"Austria", QLocale(QStringLiteral("de_AT")).uiLanguages(), true},
            {"Germany", QLocale(QStringLiteral("de_DE")).uiLanguages(), true},
            {"none of that, then German", {QStringLiteral("br"), QStringLiteral("de")}, true},
            {"English before German", {QStringLiteral("en-GB"), QStringLiteral("de")}, false},
            {"none", {QStringLiteral("C"), QStringLiteral("de")}, false},
            {"one that is not there", {QStringLiteral("br-FR"), QStringLiteral("br")}, false},
            {"no language", {QString(), QStringLiteral("../de"), QStringLiteral("d")}, false},
            {"empty", {}, false}};
        for (const auto &[name, languages, isGerman] : rows) {
            installTranslations(*qApp, languages);
            const auto shows = [isGerman = isGerman](const QString &text, const char *english,
                                                     const char *german) {
                return text == QString::fromUtf8(isGerman ? german : english);
            };
            InMemoryPlatform platform;
            Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
            PanelModel model;
            model.setHasPermission(true);
            model.setWindowCount(1);
            model.onQuit = [] {};
            const PanelView view(model, prefs, [](const HotKeyCombo &) { return QString(); });
            const auto *status = view.findChild<StatusLine *>(QStringLiteral("status"));
            QVERIFY2(shows(status->text(), "1 windows remembered", "1 Fenster gemerkt"), name);
            StatusMenu menu(model, [] {});
            QVERIFY2(shows(menu.menu().actions().last()->text(), "Quit Panorel", "Panorel beenden"),
                     name);
            QVERIFY2(shows(timeInWords({}, {}), "just now", "gerade eben"), name);
            QVERIFY2(shows(nameOf(FixedAction::Stash), "Stash", "Wegräumen"), name);
            qDeleteAll(qApp->findChildren<QTranslator *>());
        }
    }
};

QTEST_MAIN(TranslationTests)
#include "TranslationTests.moc"
