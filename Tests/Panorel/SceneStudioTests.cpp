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

} // namespace

class SceneStudioTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBoxFollowsThePointer()
    {
        for (const auto &[size, hasDisplays] : {std::pair(QSize(960, 640), true),
                                                {QSize(420, 360), true},
                                                {QSize(2400, 1500), true},
                                                {QSize(960, 640), false}}) {
            Studio studio;
            if (!hasDisplays)
                studio.scene.layout.displays.clear();
            studio.open();
            studio.view->resize(size);
            QTRY_COMPARE(studio.canvas().width(), size.width());
            const QTransform transform = studio.canvas().transform();
            QVERIFY(QRectF(studio.canvas().rect())
                        .contains(transform.mapRect(QRectF(1800, 100, 900, 700))));
            const QPoint from = studio.at(500, 400);
            studio.press(from);
            for (const QPoint &way : {QPoint(31, 17), QPoint(-12, 20), QPoint(25, -9)}) {
                studio.moveTo(from + way, Qt::AltModifier);
                QVERIFY(std::abs(studio.frame(0)->x - 200 - way.x() / transform.m11()) <= 0.5);
                QVERIFY(std::abs(studio.frame(0)->y - 200 - way.y() / transform.m11()) <= 0.5);
                QCOMPARE(studio.canvas().transform(), transform);
            }
            studio.moveTo(from, Qt::AltModifier);
            QVERIFY(*studio.frame(0) == notesPlace);
            studio.release(from);
            QCOMPARE(studio.canvas().selected(), 0);
        }
    }

    void aPressTakesTheEdgesThatItIsOn()
    {
        for (const double x : {200, 500, 800}) {
            for (const double y : {200, 400, 600}) {
                OpenStudio studio;
                studio.canvas().select(0);
                studio.drag(studio.at(x, y), {20, 20}, Qt::AltModifier);
                const Rect frame = *studio.frame(0);
                const bool isWhole = x == 500 && y == 400;
                QCOMPARE(frame.minX() != 200, isWhole || x == 200);
                QCOMPARE(frame.maxX() != 800, isWhole || x == 800);
                QCOMPARE(frame.minY() != 200, isWhole || y == 200);
                QCOMPARE(frame.maxY() != 600, isWhole || y == 600);
            }
        }
    }

    void draggedEdgesSnapAndTheOppositeOnesStay()
    {
        const Qt::Edges whole;
        const Qt::Edges upperLeft = Qt::TopEdge | Qt::LeftEdge;
        const Qt::Edges lowerRight = Qt::RightEdge | Qt::BottomEdge;
        const struct {
            const char *name;
            Qt::Edges edges; // of the lower left window
            Size way;
            double reach;
            Rect expected;
            StudioLines guides = {};
        } rows[] = {
            {"edge of the display", whole, {-195, 0}, 10, {0, 200, 600, 400}, {{0}, {}}},
            {"between displays", whole, {635, 0}, 10, {840, 200, 600, 400}, {{1440}, {}}},
            {"below the menu bar", whole, {0, -165}, 10, {200, 30, 600, 400}, {{}, {30}}},
            {"beside the other", whole, {995, -95}, 10, {1200, 100, 600, 400}, {{1800}, {100}}},
            {"a corner", lowerRight, {635, 205}, 10, {200, 200, 1240, 600}, {{1440}, {800}}},
            {"out of reach", whole, {-180, 0}, 10, {20, 200, 600, 400}},
            {"to no line", whole, {-195.3, 0}, 0, {5, 200, 600, 400}},
            {"right", Qt::RightEdge, {15.3, 9}, 0, {200, 200, 615, 400}},
            {"upper left", upperLeft, {-15.3, 9}, 0, {185, 209, 615, 391}},
            {"left, to the smallest", Qt::LeftEdge, {900, 0}, 0, {600, 200, 200, 400}},
            {"upper left, to the smallest", upperLeft, {900, 900}, 0, {600, 450, 200, 150}},
            {"right, to the smallest", Qt::RightEdge, {-900, 0}, 0, {200, 200, 200, 400}},
            {"top, beyond the displays", Qt::TopEdge, {0, -900}, 0, {200, 0, 600, 600}},
        };
        for (const auto &row : rows) {
            OpenStudio studio;
            StudioGesture gesture(studio.view->model(), 0, row.edges);
            gesture.dragTo({-195, -165}, 10); // what was before leaves no trace
            gesture.dragTo(row.way, row.reach);
            QVERIFY2(*studio.frame(0) == row.expected, row.name);
            QVERIFY2(gesture.guides() == row.guides, row.name);
            studio.view->model().removeBox(0);
            gesture.dragTo(row.way, row.reach); // the box is gone
            studio.view->discard();
        }
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
        studio.press(studio.at(500, 400));
        studio.moveTo(studio.at(550, 400), Qt::AltModifier);
        const Rect held = *studio.frame(0);
        QVERIFY(held.x > 240);
        QTest::keyClick(studio.view, Qt::Key_S, Qt::ControlModifier); // the mouse still holds it
        QTRY_VERIFY(studio.view.isNull());
        QCOMPARE(studio.saved.size(), 1u);
        QVERIFY(studio.saved[0].layout.windows.at(0).frame == held);
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

    void allOfItShows()
    {
        const std::pair<const char *, void (*)(Studio &)> acts[] = {
            {"select", [](Studio &studio) { studio.canvas().select(0); }},
            {"small", [](Studio &studio) { studio.view->resize(640, 480); }},
            {"drag",
             [](Studio &studio) {
                 studio.press(studio.at(500, 400));
                 studio.moveTo(studio.at(940, 398));
                 studio.moveTo(studio.at(1137, 450));
             }},
            {"ask",
             [](Studio &studio) {
                 studio.view->model().move(0, {10, 0});
                 studio.view->close();
             }},
            {"empty", [](Studio &studio) {
                 while (!studio.view->model().boxes().empty())
                     studio.view->model().removeBox(studio.view->model().boxes().front().id);
             }}};
        for (const auto &[name, act] : acts) {
            Studio studio;
            auto &windows = studio.scene.layout.windows;
            const char *title = "Präsentation für den Aufsichtsrat – Übersicht aller Maßnahmen";
            windows.push_back(window("Browser", title, {60, 60, 1000, 780}));
            windows.push_back(window("Player", "", {2780, 40, 200, 150}));
            studio.platform.desktop.launch(QStringLiteral("browser"), {});
            studio.open();
            act(studio);
            QWidget *asked = studio.question();
            ViewProbe{asked ? *asked : *studio.view}.photograph(QByteArray("studio-") + name);
        }
    }
};

QTEST_MAIN(SceneStudioTests)
#include "SceneStudioTests.moc"
