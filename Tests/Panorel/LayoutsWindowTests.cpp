#include "Panorel/Layouts/LayoutsWindow.h"
#include "Panorel/Layouts/LayoutsWindowController.h"
#include "Panorel/Layouts/RulesModel.h"
#include "Panorel/Records.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/UI/TimeInWords.h"
#include "Panorel/ViewProbe.h"

#include <QLineEdit>
#include <QTableView>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// A desk elsewhere, with as many windows, each of an application of its own.
Layout desk(const char *name, int windows)
{
    Layout layout;
    layout.configID = layout.name = QString::fromUtf8(name);
    layout.savedAt = FakeClock().now();
    layout.displays = {display("Built-in Display", {0, 360, 1440, 900}),
                       display("U2720Q", {1440, 0, 2560, 1440})};
    for (int i = 0; i < windows; ++i) {
        const QString application = QStringLiteral("App %1").arg(i, 4, 10, QLatin1Char('0'));
        const double x = 40 + i * 631 % 3200;
        const double y = 420 + i * 367 % 500;
        layout.windows.push_back(
            {application, QStringLiteral("org.test.") + application, {}, {}, {x, y, 700, 420}, i});
    }
    return layout;
}

struct Window {
    SettingsProgram program;
    std::unique_ptr<LayoutsWindowController> controller;

    explicit Window(const std::vector<Layout> &learned = {}) : program(learned) { restart(); }
    void restart()
    {
        controller = std::make_unique<LayoutsWindowController>(
            program.model, program.platform.defaults, [](const QUuid &) {}, program.dir.clock);
    }
    ViewProbe open(std::optional<LayoutsSection> section = {})
    {
        controller->show(section);
        if (!QTest::qWaitForWindowActive(controller->window()))
            qFatal("the window does not show");
        ViewProbe::settle();
        return {*controller->window()};
    }
};

} // namespace

class LayoutsWindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowComesBackAsItWasLeft()
    {
        Window test;
        test.open();
        LayoutsWindow *window = test.controller->window();
        ViewProbe{*window}.click("Rules");
        QTest::keyClick(window, Qt::Key_Escape);
        QVERIFY(!window->isVisible());
        test.open();
        QCOMPARE(test.controller->window(), window);
        QVERIFY(window->findChild<QTableView *>()->isVisible());
        window->resize(720, 520);
        const QRect left = window->geometry();
        test.restart(); // the program ends while it is open
        test.open(LayoutsSection::Scenes);
        QCOMPARE(test.controller->window()->geometry(), left);
        QVERIFY(ViewProbe{*test.controller->window()}.reads("Saved scenes"));
    }

    void desksAreNamedMarkedAndForgotten()
    {
        Window test({desk("Office", 12), desk("Home", 1)});
        const ViewProbe view = test.open();
        const auto names = [&] {
            QStringList result;
            for (const NameField *field : view.shown<NameField>())
                result << field->name();
            return result.join(u'|');
        };
        QCOMPARE(names(), QStringLiteral("Desk setup|Office|Home"));
        QCOMPARE(view.shown<QWidget>(QStringLiteral("currentDesk")).size(), 1);
        QVERIFY(view.reads("1 window, last learned just now"));
        view.photograph("layouts-desks");
        QVERIFY(view.tabTo(view.shown<NameField>().at(1)));
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_B}) // in place of all
            view.press(key);
        test.program.dir.clock.advance(5min);
        test.program.model.refresh(); // does not disturb
        view.press(Qt::Key_Return);
        QCOMPARE(names(), QStringLiteral("Desk setup|ab|Home"));
        QVERIFY(view.reads("1 window, last learned 5 minutes ago"));
        QCOMPARE(test.program.model.deskName(QStringLiteral("Office")), QStringLiteral("ab"));

        QVERIFY(view.tabTo(view.find("Forget…", 1)));
        for (const char *answer : {"Cancel", "Forget"}) {
            view.press(Qt::Key_Space);
            QCOMPARE(names(), QStringLiteral("Desk setup|ab|Home"));
            QVERIFY(ViewProbe::dialog().reads("Forget “ab”?"));
            QVERIFY(ViewProbe::dialog().tabTo(ViewProbe::dialog().find(answer)));
            ViewProbe::dialog().press(Qt::Key_Return);
        }
        QCOMPARE(names(), QStringLiteral("Desk setup|Home"));
        QVERIFY(view.tabTo(view.find("Desks")));
        view.press(Qt::Key_Right);
        QVERIFY(test.program.model.layoutsSection() == LayoutsSection::Scenes);
    }

    void scenesAreShownHereToo()
    {
        Window test;
        test.program.addScene("Writing");
        test.program.addForeignScene("Away");
        const ViewProbe view = test.open(LayoutsSection::Scenes);
        QVERIFY(!view.find("Key and options") && view.find("Edit…"));
        view.photograph("layouts-scenes");
        view.click("Delete…");
        ViewProbe::dialog().click("Delete");
        QCOMPARE(test.program.sceneNames(), QStringList{QStringLiteral("Away")});
    }

    void rulesAreFoundAndSetByMouseAndKeyboard()
    {
        Window test({desk("Office", 1000)});
        const ViewProbe view = test.open(LayoutsSection::Rules);
        auto *table = view.shown<QTableView>().at(0);
        const auto cell = [&](int row, int column) { return table->model()->index(row, column); };
        const auto click = [&](int row, int column) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                              table->visualRect(cell(row, column)).center());
        };
        const auto rule = [&](int row) {
            return test.program.model.rules().at(std::size_t(row)).rule;
        };
        QCOMPARE(table->model()->rowCount(), 1002);
        view.root.resize(1100, 700);
        QCoreApplication::processEvents();
        QVERIFY(std::abs(table->mapTo(&view.root, table->rect().center()).x() - 550) <= 1);
        click(1, RulesModel::Ignored);
        click(1, RulesModel::Application); // a name is no switch
        QVERIFY(rule(1).ignored && !rule(1).restoreSize);
        table->setFocus(Qt::TabFocusReason);
        table->setCurrentIndex(cell(1, RulesModel::Ignored));
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Space, Qt::Key_Down})
            QTest::keyClick(table, key);
        QVERIFY(!rule(1).ignored && rule(1).restoreSize);
        QCOMPARE(table->currentIndex(), cell(2, RulesModel::RestoreSize)); // the place is kept
        view.photograph("layouts-rules");

        auto *search = view.shown<QLineEdit>().at(0);
        QTest::keyClicks(search, QStringLiteral("app 099"));
        QCOMPARE(table->model()->rowCount(), 10);
        click(9, RulesModel::Ignored);
        QCOMPARE(test.program.model.rules().at(999).appName, QStringLiteral("App 0999"));
        QVERIFY(rule(999).ignored);
        QTest::keyClicks(search, QStringLiteral("?"));
        QCOMPARE(table->model()->rowCount(), 0);
        QVERIFY(view.reads("No application is called so."));
        view.photograph("layouts-rules-none");
    }

    void aThousandWindowsTakeNoMoreWidgetsThanTen()
    {
        const auto widgetsWith = [](int windows) {
            Window test({desk("Office", windows)});
            SceneRecord scene = test.program.addScene("Many");
            scene.layout = desk("Office", windows);
            test.program.model.updateScene(scene);
            QList<qsizetype> widgets;
            for (const auto section :
                 {LayoutsSection::Desks, LayoutsSection::Scenes, LayoutsSection::Rules}) {
                const ViewProbe view = test.open(section);
                view.root.grab(); // what is made only when it is drawn counts as well
                widgets << view.root.findChildren<QWidget *>().size();
            }
            return widgets;
        };
        QCOMPARE(widgetsWith(1000), widgetsWith(10));
    }

    void whenSomethingHappenedIsSaidInWords()
    {
        const std::pair<std::chrono::milliseconds, const char *> cases[] = {
            {0ms, "just now"},
            {59999ms, "just now"},
            {1min, "a minute ago"},
            {2min, "2 minutes ago"},
            {1h - 1ms, "59 minutes ago"},
            {1h, "today at 08:20"},
            {9h + 20min, "today at 00:00"},
            {9h + 21min, "yesterday at 23:59"},
            {33h + 21min, "on Saturday, 11 May 2024"},
            {-1min, "on Monday, 13 May 2024"}};
        const Instant now = FakeClock().now(); // 9:20 in UTC
        const QLocale locale(QStringLiteral("en_GB"));
        for (const auto &[ago, words] : cases)
            QCOMPARE(timeInWords(now - ago, now, locale, QTimeZone::utc()),
                     QString::fromLatin1(words));
    }

    void emptyPagesSayWhatWillAppear()
    {
        Window test;
        test.program.model.forgetDesk(test.program.model.layouts().at(0).configID);
        for (const auto &[section, name] : {std::pair(LayoutsSection::Desks, "desks-empty"),
                                            {LayoutsSection::Rules, "rules-empty"}}) {
            const ViewProbe view = test.open(section);
            view.photograph(QByteArray("layouts-") + name);
            QVERIFY(view.shown<NameField>().isEmpty() && view.shown<QTableView>().isEmpty());
        }
    }
};

QTEST_MAIN(LayoutsWindowTests)
#include "LayoutsWindowTests.moc"
