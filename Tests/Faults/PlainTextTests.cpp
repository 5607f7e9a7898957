#include "Panorel/Layouts/LayoutsWindow.h"
#include "Panorel/Layouts/LayoutsWindowController.h"
#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/SceneStudio/SceneStudioController.h"
#include "Panorel/SceneStudio/SceneStudioWindow.h"
#include "Panorel/Settings/AutomationPane.h"
#include "Panorel/Settings/ScenesPane.h"
#include "Panorel/Settings/SettingsWindow.h"
#include "Panorel/Settings/SettingsWindowController.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/PlainLine.h"
#include "Panorel/ViewProbe.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QMenu>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace Panorel;

namespace {

/// What any program may call its windows and anybody may write into a file.
const QString hostileTexts[] = {
    QStringLiteral("<img src=\"file:///etc/passwd\"><b>big</b>"),
    QStringLiteral("<a href='https://example.org'>a link</a>"),
    QStringLiteral("R&D && &Quit &lt;b&gt;"),
    QStringLiteral("$(touch /tmp/x) `id` %s%n %1 %2 {0}"),
    QStringLiteral("a\n[2024-05-13T09:20:00Z] store: all is lost\r\u2028\x1B[2J\x07"),
    QStringLiteral("\u202Egpj.exe\u202C \u2066"),
    QString(20'000, u'W'),
};

/// What is seen of a text where HTML may be taken for that.
QString seen(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

/// HTML to the toolkit is only what was escaped.
bool isPlain(const QString &toolTip)
{
    return !Qt::mightBeRichText(toolTip)
           || (toolTip.startsWith(QLatin1String("<qt>")) && toolTip.count(u'<') == 2);
}

struct Views {
    const QString text;
    SettingsProgram program;
    PanelController panel{program.panel, *program.prefs, program.platform.shell(),
                          [](const HotKeyCombo &combo) { return combo.pcString(); }};
    LayoutsWindowController layouts{program.model, program.platform.defaults, [](const QUuid &) {},
                                    program.dir.clock};
    SettingsWindowController settings{program.model, *program.prefs, nullptr,
                                      program.platform.defaults, environment()};
    SceneStudioController studio{program.desktop, program.dir.log, program.dir.clock,
                                 program.platform.defaults};

    /// A desk on which everything is called so.
    explicit Views(const QString &name) : text(name)
    {
        for (RunningApplication &application : program.desktop.applications())
            application.localizedName = text;
        for (const int window : {program.editor, program.mail})
            program.desktop.window(window).title = text;
        program.controller->saveLayoutNow();
        program.controller->layouts().renameDesk(program.watcher->configID(), text);
        SceneRecord scene = program.model.addSceneFromCurrentWindows();
        scene.name = text;
        scene.wallpaperPath = u'/' + text;
        program.model.updateScene(scene);
        program.model.addTrigger({QUuid::createUuid(), scene.id, {TimeTrigger{9, 0, {}}}, true});
        program.model.refresh();
        program.controller->applyScene(scene.id); // the panel shows its name
        program.desktop.launch(QStringLiteral("viewer"), text);
        studio.open(scene, [](const SceneRecord &) {});
        layouts.show(LayoutsSection::Desks);
        settings.show(SettingsSection::General);
        panel.open({QRect(900, 0, 24, 24), QRect(0, 24, 1920, 1056), {}},
                   PanelController::Keyboard::Take);
        ViewProbe::settle();
    }
    SettingsEnvironment environment()
    {
        SettingsEnvironment environment;
        environment.makePane = [this](SettingsSection section) -> QWidget * {
            if (section == SettingsSection::Automation)
                return new AutomationPane(program.model);
            return new ScenesPane(program.model, [](const QUuid &) {}, {});
        };
        environment.takeSettleSeconds = environment.suspendHotKeys =
            environment.resumeHotKeys = [] {};
        environment.keyCodeOf = [](quint32, quint32) { return std::optional<quint32>(); };
        return environment;
    }
};

} // namespace

/// Names from outside are shown as they are and never understood as anything.
class PlainTextTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyViewShowsNamesAsPlainText()
    {
        for (const QString &text : hostileTexts)
            checkViews(text);
    }

    void aToolTipShowsWhatTheNameIs()
    {
        for (const QString &text : hostileTexts) {
            if (!text.contains(u'\n'))
                QCOMPARE(seen(plainToolTip(text)), text.trimmed());
            TextLabel label(TextStyle::Body);
            label.setText(text);
            label.resize(20, 20);
            QHelpEvent help(QEvent::ToolTip, {}, {});
            QCoreApplication::sendEvent(&label, &help);
            QCOMPARE(QToolTip::text(), plainToolTip(text));
            QToolTip::hideText();
        }
    }

private:
    static void checkViews(const QString &text)
    {
        qInfo("%s", qPrintable(plainLine(text).left(40)));
        Views views(text);
        int shown = 0;
        for (const auto section :
             {LayoutsSection::Desks, LayoutsSection::Scenes, LayoutsSection::Rules})
            views.layouts.show(section), shown += check(text);
        for (const auto section :
             {SettingsSection::General, SettingsSection::Displays, SettingsSection::Shortcuts,
              SettingsSection::Scenes, SettingsSection::Automation, SettingsSection::About})
            views.settings.show(section), shown += check(text);
        QVERIFY2(shown >= 10, qPrintable(QString::number(shown)));
        // As lines of the log, nothing is more than the end of one.
        for (const QString &line : views.program.dir.logged())
            QVERIFY2(!line.startsWith(QLatin1String("store: all is lost"))
                         && !line.contains(u'\x1B') && !line.contains(u'\r'),
                     qPrintable(line));
        QVERIFY(!views.program.dir.logged().filter(QStringLiteral("scene applied: ")).isEmpty());
    }

    /// How often the text shows. Fails for the first place that may take it for more.
    static int check(const QString &text)
    {
        ViewProbe::settle();
        int shown = 0;
        const auto fail = [](const QObject *where, const QString &what) {
            QFAIL(qPrintable(
                QStringLiteral("%1 in %2")
                    .arg(what.left(200), QLatin1String(where->metaObject()->className()))));
        };
        for (QWidget *widget : QApplication::allWidgets()) {
            if (!isPlain(widget->toolTip()))
                fail(widget, widget->toolTip());
            if (const auto *label = qobject_cast<QLabel *>(widget)) {
                shown += label->text().contains(text);
                if (label->textFormat() != Qt::PlainText && Qt::mightBeRichText(label->text()))
                    fail(label, label->text());
            } else if (const auto *control = qobject_cast<ActionControl *>(widget)) {
                shown += control->title().contains(text);
            } else if (const auto *view = qobject_cast<QAbstractItemView *>(widget)) {
                const QAbstractItemModel *model = view->model();
                for (int row = 0; model && row < model->rowCount(); ++row) {
                    const QModelIndex index = model->index(row, 0);
                    shown += index.data().toString() == plainLine(text);
                    if (!isPlain(index.data(Qt::ToolTipRole).toString()))
                        fail(view, index.data(Qt::ToolTipRole).toString());
                }
            }
        }
        return shown;
    }
};

QTEST_MAIN(PlainTextTests)
#include "PlainTextTests.moc"
