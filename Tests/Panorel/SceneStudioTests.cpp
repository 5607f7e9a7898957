#include "Panorel/Records.h"
#include "Panorel/SceneStudio/SceneStudioCanvas.h"
#include "Panorel/SceneStudio/SceneStudioController.h"
#include "Panorel/SceneStudio/SceneStudioWindow.h"
#include "Panorel/ViewProbe.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestDataDir.h"

#include <QAccessible>
#include <QDialog>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

using namespace Panorel;

namespace {

constexpr Rect notesPlace{200, 200, 600, 400};
constexpr Rect inboxPlace{1800, 100, 900, 700};

/// The studio with a scene of two windows on two displays; Mail does not run.
struct Studio {
    TestDataDir dir;
    InMemoryPlatform platform;
    SceneRecord scene;
    std::vector<SceneRecord> saved;
    SceneStudioController controller{platform.desktop, dir.log, dir.clock, platform.defaults};
    QPointer<SceneStudioWindow> view;

    Studio()
    {
        scene.id = QUuid::createUuidV5(QUuid(), QStringLiteral("scene"));
        scene.name = QStringLiteral("R&D [*] desk");
        scene.layout.displays = {
            display("Built-in Display", {0, 0, 1440, 900}, Rect{0, 30, 1440, 870}, true),
            display("U2720Q", {1440, 0, 1920, 1080})};
        scene.layout.windows = {window("Editor", "Notes", notesPlace),
                                window("Mail", "Inbox", inboxPlace)};
        platform.desktop.launch(QStringLiteral("editor"), QStringLiteral("Editor"));
    }
    void open()
    {
        controller.open(scene, [this](const SceneRecord &edited) { saved.push_back(edited); });
        view = controller.window(scene.id);
        if (!QTest::qWaitForWindowActive(view))
            qFatal("the studio does not show");
    }
    SceneStudioCanvas &canvas() { return view->canvas(); }
    std::optional<Rect> frame(int id) const
    {
        const SceneStudioModel::Box *box = view->model().box(id);
        return box ? std::optional(box->record.frame) : std::nullopt;
    }
    double scale() { return canvas().transform().m11(); }
    QPoint at(double x, double y) { return canvas().transform().map(QPointF(x, y)).toPoint(); }

    void press(const QPoint &at) { QTest::mousePress(&canvas(), Qt::LeftButton, {}, at); }
    void moveTo(const QPoint &at, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, at, canvas().mapToGlobal(at), Qt::NoButton,
                          Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&canvas(), &event);
    }
    void release(const QPoint &at) { QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, at); }
    void drag(const QPoint &from, const QPoint &by, Qt::KeyboardModifiers modifiers = {})
    {
        press(from);
        moveTo(from + by / 2, modifiers);
        moveTo(from + by, modifiers);
        release(from + by);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void hold(Qt::Key key, int repeats)
    {
        QTest::keyPress(&canvas(), key);
        for (int i = 0; i < repeats; ++i) {
            QKeyEvent event(QEvent::KeyPress, key, {}, {}, true);
            QCoreApplication::sendEvent(&canvas(), &event);
        }
        QTest::keyRelease(&canvas(), key);
    }
    void undo() { QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier); }
    ViewProbe probe() const { return {*view}; }
    bool canUndo() const { return probe().find("Undo")->isEnabled(); }
    void click(const char *title) { probe().click(title); }
    void clickOn(const QPoint &at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&canvas(), button, {}, at);
    }
    QMenu *menu() const { return view->findChild<QMenu *>(); }
    void closeMenu()
    {
        menu()->close();
        view->activateWindow();
        if (!QTest::qWaitFor([this] { return !menu() && view->isActiveWindow(); }))
            qFatal("the menu stays");
    }
    QDialog *question() const { return view ? view->findChild<QDialog *>() : nullptr; }
    QString note() const { return probe().text("note"); }
};

struct OpenStudio : Studio {
    OpenStudio() { open(); }
};

bool isWithin(double one, double other, double tolerance)
{
    return std::abs(one - other) <= tolerance;
}

} // namespace

class SceneStudioTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBoxFollowsThePointer_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("hasDisplays");
        QTest::newRow("usual") << QSize(960, 640) << true;
        QTest::newRow("small") << QSize(420, 360) << true;
        QTest::newRow("large") << QSize(2400, 1500) << true;
        QTest::newRow("without displays") << QSize(960, 640) << false;
    }

    void aBoxFollowsThePointer()
    {
        QFETCH(QSize, size);
        QFETCH(bool, hasDisplays);
        Studio studio;
        if (!hasDisplays)
            studio.scene.layout.displays.clear();
        studio.open();
        studio.view->resize(size);
        QTRY_COMPARE(studio.canvas().width(), size.width());
        const double scale = studio.scale();
        QVERIFY(QRectF(studio.canvas().rect())
                    .contains(studio.canvas().transform().mapRect(QRectF(1800, 100, 900, 700))));
        const QPoint from = studio.at(500, 400);
        studio.press(from);
        for (const QPoint &way : {QPoint(31, 17), QPoint(-12, 20), QPoint(25, -9)}) {
            studio.moveTo(from + way, Qt::AltModifier);
            QVERIFY(isWithin(studio.frame(0)->x, 200 + way.x() / scale, 0.5));
            QVERIFY(isWithin(studio.frame(0)->y, 200 + way.y() / scale, 0.5));
            QCOMPARE(studio.scale(), scale);
        }
        studio.moveTo(from, Qt::AltModifier);
        QVERIFY(*studio.frame(0) == notesPlace);
        studio.release(from);
        QCOMPARE(studio.canvas().selected(), 0);
    }

    void anEdgeIsDraggedWhileTheOppositeOneStays_data()
    {
        QTest::addColumn<QPointF>("grip");
        QTest::addColumn<QPoint>("way");
        QTest::addColumn<Rect>("expected"); // 0: as the pointer has it
        const QPoint out(20, 20);
        const QPoint in(-20, -20);
        const auto row = [](const char *name, double x, double y, QPoint way,
                            const Rect &expected) {
            QTest::newRow(name) << QPointF(x, y) << way << expected;
        };
        row("right", 800, 400, out, {200, 200, 0, 400});
        row("bottom", 500, 600, out, {200, 200, 600, 0});
        row("lower right", 800, 600, in, {200, 200, 0, 0});
        row("left", 200, 400, in, {0, 200, 0, 400});
        row("top", 500, 200, in, {200, 0, 600, 0});
        row("upper left", 200, 200, out, {0, 0, 0, 0});
        row("upper right", 800, 200, out, {200, 0, 0, 0});
        row("lower left", 200, 600, in, {0, 200, 0, 0});
        row("left, to the smallest", 200, 400, {900, 0}, {600, 200, 200, 400});
        row("top, to the smallest", 500, 200, {0, 900}, {200, 450, 600, 150});
        row("upper left, to the smallest", 200, 200, {900, 900}, {600, 450, 200, 150});
        row("right, to the smallest", 800, 400, {-900, 0}, {200, 200, 200, 400});
        row("top, beyond the displays", 500, 200, {0, -900}, {200, 0.001, 600, 600});
    }

    void anEdgeIsDraggedWhileTheOppositeOneStays()
    {
        QFETCH(QPointF, grip);
        QFETCH(QPoint, way);
        QFETCH(Rect, expected);
        OpenStudio studio;
        studio.canvas().select(0);
        studio.drag(studio.at(grip.x(), grip.y()), way, Qt::AltModifier);
        const Rect frame = *studio.frame(0);
        const auto isAsExpected = [](double value, double wanted) {
            return wanted == 0 || isWithin(value, wanted, 0.01);
        };
        QVERIFY(isAsExpected(frame.x, expected.x));
        QVERIFY(isAsExpected(frame.y, expected.y));
        QVERIFY(isAsExpected(frame.width, expected.width));
        QVERIFY(isAsExpected(frame.height, expected.height));
        const double tolerance = 0.5 + 0.5 / studio.scale();
        const double dx = way.x() / studio.scale();
        const double dy = way.y() / studio.scale();
        if (expected.width == 0) {
            const bool isLeft = grip.x() == 200;
            QVERIFY(isWithin(isLeft ? frame.minX() : frame.maxX(), grip.x() + dx, tolerance));
            QCOMPARE(isLeft ? frame.maxX() : frame.minX(), isLeft ? 800.0 : 200.0);
        }
        if (expected.height == 0) {
            const bool isTop = grip.y() == 200;
            QVERIFY(isWithin(isTop ? frame.minY() : frame.maxY(), grip.y() + dy, tolerance));
            QCOMPARE(isTop ? frame.maxY() : frame.minY(), isTop ? 600.0 : 200.0);
        }
    }

    void edgesSnapToDisplaysPanelsAndOtherBoxes_data()
    {
        QTest::addColumn<Size>("way"); // of the lower left window; 5 short of the line
        QTest::addColumn<Qt::Edges>("edges");
        QTest::addColumn<Rect>("expected");
        QTest::addColumn<StudioLines>("guides");
        const Qt::Edges whole;
        const Qt::Edges corner = Qt::RightEdge | Qt::BottomEdge;
        QTest::newRow("edge of the display")
            << Size{-195, 0} << whole << Rect{0, 200, 600, 400} << StudioLines{{0}, {}};
        QTest::newRow("between two displays")
            << Size{635, 0} << whole << Rect{840, 200, 600, 400} << StudioLines{{1440}, {}};
        QTest::newRow("below the menu bar")
            << Size{0, -165} << whole << Rect{200, 30, 600, 400} << StudioLines{{}, {30}};
        QTest::newRow("beside the other window and level with it")
            << Size{1000 - 5, -100 + 5} << whole << Rect{1200, 100, 600, 400}
            << StudioLines{{1800}, {100}};
        QTest::newRow("a corner") << Size{635, 205} << corner << Rect{200, 200, 1240, 600}
                                  << StudioLines{{1440}, {800}};
        QTest::newRow("out of reach")
            << Size{-180, 0} << whole << Rect{20, 200, 600, 400} << StudioLines{};
    }

    void edgesSnapToDisplaysPanelsAndOtherBoxes()
    {
        QFETCH(Size, way);
        QFETCH(Qt::Edges, edges);
        QFETCH(Rect, expected);
        QFETCH(StudioLines, guides);
        OpenStudio studio;
        StudioGesture gesture(studio.view->model(), 0, edges);
        gesture.dragTo(way, 10);
        QVERIFY(*studio.frame(0) == expected);
        QVERIFY(gesture.guides() == guides);
        gesture.dragTo({15.3, 0}, 0);
        QVERIFY(gesture.guides() == StudioLines());
        QCOMPARE(edges ? studio.frame(0)->maxX() - 800 : studio.frame(0)->x - 200, 15.0);
        studio.view->model().removeBox(0);
        gesture.dragTo(way, 10); // the box is gone
        studio.view->discard();
    }

    void altSuspendsSnappingWhileItIsHeld()
    {
        OpenStudio studio;
        const QPoint from = studio.at(500, 400);
        const QPoint to = from + (studio.at(0, 0) - studio.at(200, 0)) + QPoint(3, 0);
        studio.press(from);
        studio.moveTo(to);
        QCOMPARE(studio.frame(0)->x, 0.0);
        QTest::keyPress(&studio.canvas(), Qt::Key_Alt);
        QVERIFY(studio.frame(0)->x > 5);
        QTest::keyRelease(&studio.canvas(), Qt::Key_Alt);
        QCOMPARE(studio.frame(0)->x, 0.0);
        QTest::keyClick(&studio.canvas(), Qt::Key_Delete); // not while the mouse holds it
        QTest::keyClick(&studio.canvas(), Qt::Key_Escape);
        QVERIFY(*studio.frame(0) == notesPlace);
        studio.release(to);
        QVERIFY(!studio.canUndo());
        studio.drag(from, {1, 1}); // a trembling click
        QVERIFY(*studio.frame(0) == notesPlace);
    }

    void thePressTakesTheFrontmostBoxAndTheSelectedOnesEdges()
    {
        Studio studio;
        studio.scene.layout.windows.push_back(window("Chat", "", {300, 300, 600, 400}));
        studio.open();
        const QPoint both = studio.at(600, 500);
        studio.clickOn(both);
        QCOMPARE(studio.canvas().selected(), 0);
        studio.clickOn(studio.at(850, 650));
        QCOMPARE(studio.canvas().selected(), 2);
        studio.drag(studio.at(300, 500), {-20, 0}, Qt::AltModifier); // lies under the front box
        QVERIFY(studio.frame(2)->x < 300 && studio.frame(2)->maxX() == 900);
        QVERIFY(*studio.frame(0) == notesPlace);
        studio.clickOn(QPoint(3, 3));
        QCOMPARE(studio.canvas().selected(), std::nullopt);
        studio.clickOn(both, Qt::RightButton);
        QCOMPARE(studio.canvas().selected(), std::nullopt);
    }

    void everythingIsDoneByKeyboardAlone()
    {
        OpenStudio studio;
        QCOMPARE(QApplication::focusWidget(), &studio.canvas());
        studio.key(Qt::Key_Tab);
        QCOMPARE(studio.canvas().selected(), 0);
        studio.key(Qt::Key_Left);
        studio.key(Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(*studio.frame(0) == Rect({199, 210, 600, 400}));
        studio.key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        studio.key(Qt::Key_Up, Qt::ControlModifier);
        QVERIFY(*studio.frame(0) == Rect({199, 210, 610, 399}));
        QCOMPARE(studio.note(), QStringLiteral("Editor, Notes · 199, 210 · 610 × 399"));
        const auto *spoken = QAccessible::queryAccessibleInterface(&studio.canvas());
        QCOMPARE(spoken->text(QAccessible::Description), studio.note());
        studio.key(Qt::Key_Tab);
        QCOMPARE(studio.note(),
                 QStringLiteral("Mail, Inbox · 1800, 100 · 900 × 700 · not running"));

        QStringList visited;
        for (studio.key(Qt::Key_Tab); QApplication::focusWidget() != &studio.canvas();
             studio.key(Qt::Key_Tab))
            visited << QApplication::focusWidget()->accessibleName();
        QCOMPARE(visited.join(u'|'),
                 QStringLiteral("Cancel|Save|Add application|Remove window|Undo"));
        QCOMPARE(studio.canvas().selected(), 0);
        studio.key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Undo"));
        studio.key(Qt::Key_Tab);
        studio.key(Qt::Key_Delete);
        QVERIFY(!studio.frame(0));
        QCOMPARE(studio.canvas().selected(), 1);
        studio.key(Qt::Key_Delete);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Add application"));
        studio.undo();
        studio.undo();
        QVERIFY(studio.frame(0) && studio.frame(1));
    }

    void aGestureIsOneStepBack()
    {
        OpenStudio studio;
        studio.drag(studio.at(500, 400), {40, 30});
        const Rect dragged = *studio.frame(0);
        studio.hold(Qt::Key_Right, 5);
        const Rect nudged = *studio.frame(0);
        QCOMPARE(nudged.x, dragged.x + 6);
        studio.click("Remove window");
        const std::optional<Rect> steps[] = {std::nullopt, nudged, dragged, notesPlace};
        for (std::size_t i = 1; i < 4; ++i) {
            studio.undo();
            QCOMPARE(studio.frame(0), steps[i]);
        }
        QVERIFY(!studio.canUndo());
        studio.undo();
        for (std::size_t i = 3; i > 0; --i) {
            i == 1 ? studio.key(Qt::Key_Y, Qt::ControlModifier)
                   : studio.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QCOMPARE(studio.frame(0), steps[i - 1]);
        }
        studio.click("Undo");
        studio.canvas().select(0);
        studio.hold(Qt::Key_Left, 0);
        QVERIFY(!studio.probe().find("Redo")->isEnabled()); // another way was taken
        QTest::keyPress(&studio.canvas(), Qt::Key_Up);      // and is still held
        studio.undo();
        QCOMPARE(studio.frame(0)->y, nudged.y);
    }

    void closingAsksOnlyWhereSomethingWouldBeLost()
    {
        for (const char *answer : {"Save", "Discard", "Cancel"}) {
            OpenStudio studio;
            QCOMPARE(studio.view->windowTitle(), QStringLiteral("R&D [*][*] desk"));
            studio.drag(studio.at(500, 400), {40, 30});
            studio.click("Cancel");
            QKeyEvent again(QEvent::KeyPress, Qt::Key_Escape, {});
            QCoreApplication::sendEvent(studio.view, &again);
            QVERIFY(studio.view->isVisible());
            QCOMPARE(studio.view->findChildren<QDialog *>().size(), 1);
            QVERIFY(studio.saved.empty());
            ViewProbe{*studio.question()}.click(answer);
            const bool stays = answer == QByteArray("Cancel");
            QTRY_COMPARE(studio.question(), nullptr);
            QTRY_COMPARE(studio.view.isNull(), !stays);
            QCOMPARE(studio.saved.size(), answer == QByteArray("Save") ? 1u : 0u);
        }
        OpenStudio studio;
        studio.drag(studio.at(500, 400), {40, 30});
        studio.undo();
        studio.key(Qt::Key_Escape);
        QTRY_VERIFY(studio.view.isNull());
        studio.open();
        studio.drag(studio.at(500, 400), {40, 30});
        studio.controller.closeWithoutAsking();
        QTRY_VERIFY(studio.view.isNull());
        QVERIFY(studio.saved.empty());
    }

    void savingHandsTheSceneOverAndCloses()
    {
        OpenStudio studio;
        const double scale = studio.scale();
        studio.press(studio.at(500, 400));
        studio.moveTo(studio.at(550, 400), Qt::AltModifier);
        QTest::keyClick(studio.view, Qt::Key_S, Qt::ControlModifier); // the mouse still holds it
        QTRY_VERIFY(studio.view.isNull());
        QCOMPARE(studio.saved.size(), 1u);
        QVERIFY(isWithin(studio.saved[0].layout.windows.at(0).frame.x, 250, 1 / scale));
        QCOMPARE(studio.saved[0].name, studio.scene.name);
    }

    void aSceneOpensOnceAndWhereTheLastOneStood()
    {
        OpenStudio studio;
        studio.drag(studio.at(500, 400), {40, 30});
        const QPointer<SceneStudioWindow> first = studio.view;
        studio.open();
        QCOMPARE(studio.view, first);
        QVERIFY(*studio.frame(0) != notesPlace);
        studio.view->setGeometry(60, 70, 700, 500);
        studio.click("Save");
        QTRY_VERIFY(first.isNull());
        studio.open();
        QTRY_COMPARE(studio.view->size(), QSize(700, 500));
    }

    void anEmptySceneSaysHowToBegin()
    {
        Studio studio;
        studio.scene.layout.windows.clear();
        studio.platform.desktop.launch(QStringLiteral("shop"), QStringLiteral("Saw & \n Sons"));
        studio.open();
        QVERIFY(!studio.canvas().isVisible());
        studio.click("Add application");
        QStringList names;
        for (const QAction *action : studio.menu()->actions())
            names << action->text();
        QCOMPARE(names, QStringList({QStringLiteral("Editor"), QStringLiteral("Saw && Sons")}));
        studio.menu()->actions().last()->trigger();
        studio.closeMenu();
        QVERIFY(studio.canvas().isVisible());
        QCOMPARE(studio.canvas().selected(), 0);
        QCOMPARE(studio.view->focusWidget(), &studio.canvas());
        QVERIFY(studio.frame(0) == Rect({1230, 240, 900, 600}));

        studio.click("Add application");
        studio.menu()->actions().first()->trigger();
        studio.closeMenu();
        studio.click("Add application");
        QVERIFY(!studio.menu()->actions().first()->isEnabled()); // there are no others
        studio.closeMenu();
        studio.undo();
        studio.undo();
        QVERIFY(!studio.canvas().isVisible());
        studio.view->discard();
    }

    void allOfItShows_data()
    {
        using Act = std::function<void(Studio &)>;
        QTest::addColumn<Act>("act");
        QTest::newRow("select") << Act([](Studio &studio) { studio.canvas().select(0); });
        QTest::newRow("small") << Act([](Studio &studio) { studio.view->resize(640, 480); });
        QTest::newRow("drag") << Act([](Studio &studio) {
            studio.press(studio.at(500, 400));
            studio.moveTo(studio.at(940, 398));
            studio.moveTo(studio.at(1137, 450));
        });
        QTest::newRow("empty") << Act([](Studio &studio) {
            while (!studio.view->model().boxes().empty())
                studio.view->model().removeBox(studio.view->model().boxes().front().id);
        });
        QTest::newRow("ask") << Act([](Studio &studio) {
            studio.view->model().move(0, {10, 0});
            studio.view->close();
        });
    }

    void allOfItShows()
    {
        QFETCH(std::function<void(Studio &)>, act);
        Studio studio;
        auto &windows = studio.scene.layout.windows;
        windows.push_back(window("Browser",
                                 "Präsentation für den Aufsichtsrat – Übersicht aller Maßnahmen",
                                 {60, 60, 1000, 780}));
        windows.push_back(window("Terminal", "build", {2300, 420, 1000, 620}));
        windows.push_back(window("Player", "", {2780, 40, 200, 150}));
        for (const char *id : {"browser", "terminal"})
            studio.platform.desktop.launch(QString::fromLatin1(id), {});
        studio.open();
        act(studio);
        QWidget *asked = studio.question();
        ViewProbe{asked ? *asked : *studio.view}.photograph(QByteArray("studio-")
                                                            + QTest::currentDataTag());
    }
};

QTEST_MAIN(SceneStudioTests)
#include "SceneStudioTests.moc"
