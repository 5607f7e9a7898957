#include "Panorel/Records.h"
#include "Panorel/SceneStudio/SceneStudioCanvas.h"
#include "Panorel/SceneStudio/SceneStudioController.h"
#include "Panorel/SceneStudio/SceneStudioWindow.h"
#include "Panorel/ViewProbe.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestDataDir.h"

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
    void undo() { QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier); }
    ViewProbe probe() const { return {*view}; }
    bool canUndo() const { return probe().find("Undo")->isEnabled(); }
    void click(const char *title) { probe().click(title); }
    QDialog *question() const { return view ? view->findChild<QDialog *>() : nullptr; }
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
        for (const QSize &size : {QSize(420, 360), QSize(2400, 1500)}) {
            OpenStudio studio;
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
            {"below the menu bar", whole, {0, -165}, 10, {200, 30, 600, 400}, {{}, {30}}},
            {"beside the other", whole, {995, -95}, 10, {1200, 100, 600, 400}, {{1800}, {100}}},
            {"a corner", lowerRight, {635, 205}, 10, {200, 200, 1240, 600}, {{1440}, {800}}},
            {"out of reach", whole, {-180, 0}, 10, {20, 200, 600, 400}},
            {"upper left", upperLeft, {-15.3, 9}, 0, {185, 209, 615, 391}},
            {"upper left, to the smallest", upperLeft, {900, 900}, 0, {600, 450, 200, 150}},
        };
        for (const auto &row : rows) {
            OpenStudio studio;
            StudioGesture gesture(studio.view->model(), 0, row.edges);
            gesture.dragTo({-195, -165}, 10); // what was before leaves no trace
            gesture.dragTo(row.way, row.reach);
            QVERIFY2(*studio.frame(0) == row.expected, row.name);
            QVERIFY2(gesture.guides() == row.guides, row.name);
        }
    }

    void thePressTakesTheFrontmostBoxAndTheSelectedOnesEdges()
    {
        Studio studio;
        studio.scene.layout.windows.push_back(window("Chat", "", {300, 300, 600, 400}));
        studio.open();
        studio.drag(studio.at(600, 500), {0, 0});
        QCOMPARE(studio.canvas().selected(), 0);
        studio.canvas().select(2);
        studio.drag(studio.at(300, 500), {-20, 0}, Qt::AltModifier); // lies under the front box
        QVERIFY(studio.frame(2)->x < 300 && studio.frame(2)->maxX() == 900);
        QVERIFY(*studio.frame(0) == notesPlace);
        studio.drag(QPoint(3, 3), {0, 0});
        QCOMPARE(studio.canvas().selected(), std::nullopt);
    }

    void everythingIsDoneByKeyboardAlone()
    {
        OpenStudio studio;
        studio.key(Qt::Key_Tab);
        studio.key(Qt::Key_Left);
        studio.key(Qt::Key_Down, Qt::ShiftModifier);
        studio.key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        studio.key(Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(studio.probe().text("note"),
                 QStringLiteral("Editor, Notes · 199, 210 · 610 × 399"));
        studio.key(Qt::Key_Delete);
        QVERIFY(!studio.frame(0));
        QCOMPARE(studio.canvas().selected(), 1);
        studio.undo();
        QVERIFY(studio.frame(0));
        QStringList visited;
        for (studio.key(Qt::Key_Tab); QApplication::focusWidget() != &studio.canvas();
             studio.key(Qt::Key_Tab))
            visited << QApplication::focusWidget()->accessibleName();
        QCOMPARE(visited.join(u'|'),
                 QStringLiteral("Cancel|Save|Add application|Remove window|Undo|Redo"));
    }

    void aGestureIsOneStepBack()
    {
        OpenStudio studio;
        studio.drag(studio.at(500, 400), {40, 30});
        const std::optional<Rect> dragged = studio.frame(0);
        const QPoint from = studio.at(540, 430);
        studio.press(from);
        studio.moveTo(from + QPoint(50, 0));
        QTest::keyClick(&studio.canvas(), Qt::Key_Escape); // none
        QCOMPARE(studio.frame(0), dragged);
        QTest::keyClick(&studio.canvas(), Qt::Key_Right);
        const std::optional<Rect> nudged = studio.frame(0);
        studio.click("Remove window");
        for (const auto &step : {nudged, dragged, std::optional(notesPlace)}) {
            studio.undo();
            QCOMPARE(studio.frame(0), step);
        }
        QVERIFY(!studio.canUndo());
        studio.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio.frame(0), dragged);
    }

    void closingAsksOnlyWhereSomethingWouldBeLost()
    {
        for (const QByteArray answer : {"Save", "Discard", "Cancel"}) {
            OpenStudio studio;
            studio.drag(studio.at(500, 400), {40, 30});
            const Rect edited = *studio.frame(0);
            studio.click("Cancel");
            QVERIFY(studio.view->isVisible() && studio.saved.empty());
            ViewProbe{*studio.question()}.click(answer);
            QTRY_COMPARE(studio.question(), nullptr);
            QTRY_COMPARE(studio.view.isNull(), answer != "Cancel");
            QCOMPARE(studio.saved.size(), answer == "Save" ? 1u : 0u);
            for (const SceneRecord &scene : studio.saved)
                QVERIFY(scene.layout.windows.at(0).frame == edited);
        }
        OpenStudio studio;
        studio.drag(studio.at(500, 400), {40, 30});
        const std::optional<Rect> edited = studio.frame(0);
        studio.open(); // shows what is open as it is
        QCOMPARE(studio.frame(0), edited);
        studio.undo();
        studio.key(Qt::Key_Escape);
        QTRY_VERIFY(studio.view.isNull());
    }

    void anEmptySceneSaysHowToBegin()
    {
        Studio studio;
        studio.scene.layout.windows.clear();
        studio.open();
        QVERIFY(!studio.canvas().isVisible());
        studio.click("Add application");
        studio.view->findChild<QMenu *>()->actions().last()->trigger();
        QVERIFY(studio.canvas().isVisible());
        QCOMPARE(studio.canvas().selected(), 0);
    }

    void allOfItShows()
    {
        Studio studio;
        auto &windows = studio.scene.layout.windows;
        windows.push_back(window("Browser", "Übersicht – Maßnahmen", {60, 60, 1000, 780}));
        studio.open();
        studio.press(studio.at(500, 400));
        studio.moveTo(studio.at(940, 398));
        studio.moveTo(studio.at(1137, 450));
        studio.probe().photograph("studio-drag");
    }
};

QTEST_MAIN(SceneStudioTests)
#include "SceneStudioTests.moc"
