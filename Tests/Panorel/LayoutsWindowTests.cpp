#include "Panorel/Layouts/LayoutsWindow.h"
#include "Panorel/Layouts/LayoutsWindowController.h"
#include "Panorel/Layouts/RulesModel.h"
#include "Panorel/Records.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/ViewProbe.h"

#include <QLineEdit>
#include <QTableView>

using namespace Panorel;

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
    LayoutsWindowController controller{program.model, program.platform.defaults,
                                       [](const QUuid &) {}, program.dir.clock};

    explicit Window(const std::vector<Layout> &learned) : program(learned) {}
    ViewProbe open(std::optional<LayoutsSection> section = {})
    {
        controller.show(section);
        if (!QTest::qWaitForWindowActive(controller.window()))
            qFatal("the window does not show");
        ViewProbe::settle();
        return {*controller.window()};
    }
};

} // namespace

class LayoutsWindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
        view.photograph("layouts-desks");
        QVERIFY(view.tabTo(view.shown<NameField>().at(1)));
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_B}) // in place of all
            view.press(key);
        test.program.model.refresh(); // does not disturb
        view.press(Qt::Key_Return);
        QCOMPARE(test.program.model.deskName(QStringLiteral("Office")), QStringLiteral("ab"));
        QVERIFY(view.reads("1 window, last learned just now"));

        QVERIFY(view.tabTo(view.find("Forget…", 1)));
        for (const char *answer : {"Cancel", "Forget"}) {
            view.press(Qt::Key_Space);
            QCOMPARE(names(), QStringLiteral("Desk setup|ab|Home"));
            ViewProbe::dialog().click(answer);
        }
        QCOMPARE(names(), QStringLiteral("Desk setup|Home"));
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
        const auto rule = [&](std::size_t row) { return test.program.model.rules().at(row).rule; };
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
        QVERIFY(rule(999).ignored);
        QTest::keyClicks(search, QStringLiteral("?"));
        QVERIFY(view.reads("No application is called so."));
    }
};

QTEST_MAIN(LayoutsWindowTests)
#include "LayoutsWindowTests.moc"
