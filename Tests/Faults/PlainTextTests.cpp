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
#include <QMenu>

using namespace Panorel;

namespace {

/// What any program may call its windows and anybody may write into a file.
const QString hostileTexts[] = {
    QStringLiteral("<img src=\"file:///etc/passwd\"><b>big</b>"),
    QStringLiteral("R&D && &Quit &lt;b&gt;"),
    QStringLiteral("a\n[2024-05-13T09:20:00Z] store: all is lost\r\u2028\x1B[2J\x07"),
    QStringLiteral("\u202Egpj.exe\u202C \u2066"),
    QString(20'000, u'W'),
};

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

private:
    static void checkViews(const QString &text)
    {
        Views views(text);
        int shown = 0;
        for (const auto section :
             {LayoutsSection::Desks, LayoutsSection::Scenes, LayoutsSection::Rules})
            views.layouts.show(section), check(text, shown);
        for (const auto section : {SettingsSection::Displays, SettingsSection::Shortcuts,
                                   SettingsSection::Scenes, SettingsSection::Automation})
            views.settings.show(section), check(text, shown);
        QVERIFY2(shown >= 10, qPrintable(QString::number(shown)));
        // As lines of the log, nothing is more than the end of one.
        for (const QString &line : views.program.dir.logged())
            QVERIFY2(!line.startsWith(QLatin1String("store: all is lost"))
                         && !line.contains(u'\x1B') && !line.contains(u'\r'),
                     qPrintable(line));
        QVERIFY(!views.program.dir.logged().filter(QStringLiteral("scene applied: ")).isEmpty());
    }

    /// Counts where the text shows. Fails where something may take it for more.
    static void check(const QString &text, int &shown)
    {
        ViewProbe::settle();
        QStringList rich;
        const auto checkToolTip = [&](const QString &toolTip) {
            if (!isPlain(toolTip))
                rich << toolTip;
        };
        for (QWidget *widget : QApplication::allWidgets()) {
            checkToolTip(widget->toolTip());
            if (const auto *label = qobject_cast<QLabel *>(widget)) {
                shown += label->text().contains(text);
                if (label->textFormat() != Qt::PlainText && Qt::mightBeRichText(label->text()))
                    rich << label->text();
            } else if (const auto *control = qobject_cast<ActionControl *>(widget)) {
                shown += control->title().contains(text);
            } else if (const auto *view = qobject_cast<QAbstractItemView *>(widget)) {
                for (int row = 0; view->model() && row < view->model()->rowCount(); ++row) {
                    const QModelIndex index = view->model()->index(row, 0);
                    shown += index.data().toString() == plainLine(text);
                    checkToolTip(index.data(Qt::ToolTipRole).toString());
                }
            }
        }
        QCOMPARE(rich, QStringList());
    }
};

QTEST_MAIN(PlainTextTests)
#include "PlainTextTests.moc"
