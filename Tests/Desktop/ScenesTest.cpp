#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr HotKeyCombo sceneKey{18, HotKeyCombo::control | HotKeyCombo::option};
constexpr Rect readersPlace{2200, 150, 700, 500};

/// One application is installed, the reader.
struct Desk : DesktopSession {
    Desk()
    {
        server.home.install(QStringLiteral("org.example.Reader"),
                            "Exec=" + TestClient::program(ClientKind::Qt).toUtf8()
                                + " --title reader\nStartupWMClass=qt-client\n");
    }
    std::optional<xcb_window_t> reader() const { return probe.find(QStringLiteral("reader")); }

    TestKeyboard keyboard;
};

/// What the program has learned of the desk, as files for its next start.
std::map<QString, QByteArray> learned(Desk &desk)
{
    TestProgram program;
    const QByteArray line =
        "learned layout: " + QByteArray::number(qsizetype(desk.clients.size())) + " windows";
    program.awaitLogged(1, line.constData());
    program.endCleanly(SIGTERM); // it has written all its files
    std::map<QString, QByteArray> files;
    for (const QString &name : program.files())
        files[name] = name == QStringLiteral("app.log") ? QByteArray() : program.read(name);
    return files;
}

} // namespace

/// Scenes and placement by the program itself, with windows of real programs.
class ScenesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSceneOpensWhatIsMissingAndHidesTheOthers();
    void aStartedProgramLandsInItsPlace();
};

void ScenesTest::aSceneOpensWhatIsMissingAndHidesTheOthers()
{
    Desk desk;
    TestClient &writer =
        desk.open(ClientKind::Plain, "writer", {100, 100, 600, 500}, QStringLiteral("Writer"));
    desk.open(ClientKind::Qt, "reader", readersPlace);
    std::map<QString, QByteArray> files = learned(desk);
    const auto layout =
        PanorelJSON::decoder().decode<LayoutFile>(files[QStringLiteral("layouts.json")]).layouts[0];
    SceneRecord scene;
    scene.id = QUuid::createUuid();
    scene.configID = layout.configID;
    scene.name = QStringLiteral("Reading");
    scene.opensMissingApps = scene.hidesOtherApps = true;
    scene.hotKey = sceneKey;
    scene.layout = layout;
    files[QStringLiteral("scenes.json")] =
        PanorelJSON::encoder().encode(SceneFile{.lastAppliedByConfig = {}, .scenes = {scene}});

    desk.close(QStringLiteral("reader"));
    desk.moveAndWait(writer, {900, 300, 400, 300});
    TestClient &chat =
        desk.open(ClientKind::Plain, "chat", {300, 300, 400, 300}, QStringLiteral("Chat"));
    TestProgram program(files);
    program.pressUntilLogged(desk.keyboard, sceneKey, "scene applied: Reading, ");
    require([&] { return desk.isMinimised(chat); }, "a hidden application");
    require([&] { return desk.reader().has_value(); }, "an opened application");
    program.awaitLogged(1, "launch placement: moved 1 windows for org.example.Reader");
    QCOMPARE(desk.probe.restingFrame(desk.reader().value()), readersPlace);
    QCOMPARE(desk.probe.restingFrame(writer.window()), (Rect{100, 100, 600, 500}));
    QVERIFY(!desk.isMinimised(writer));
    program.endCleanly(SIGTERM);
    QVERIFY(desk.reader().has_value()); // it does not end with the program
}

void ScenesTest::aStartedProgramLandsInItsPlace()
{
    Desk desk;
    desk.open(ClientKind::Plain, "writer", {100, 100, 600, 500}, QStringLiteral("Writer"));
    desk.open(ClientKind::Qt, "reader", readersPlace);
    TestProgram program(learned(desk));
    const char ready[] = "learned layout: 1 windows";
    desk.close(QStringLiteral("reader"));
    desk.probe.move(desk.clients.front().window(), {110, 100, 600, 500});
    // It knows of the closing once it has learned the desk without the reader.
    program.pressUntilLogged(desk.keyboard, {1, HotKeyCombo::command | HotKeyCombo::shift}, ready);
    for (int launch = 1; launch <= 3; ++launch) {
        ChildProcess reader(QStringLiteral("gio"),
                            {QStringLiteral("launch"),
                             desk.server.home.application(QStringLiteral("org.example.Reader"))});
        reader.start();
        require([&] { return desk.reader().has_value(); }, "the reader");
        const auto window = desk.reader().value();
        require([&] { return desk.probe.frame(window) == readersPlace; }, "the reader's place");
        program.awaitLogged(launch, "launch placement: moved 1 windows for org.example.Reader");
        desk.probe.close(window);
        require([&] { return !desk.reader(); }, "the reader's end");
    }
}

QTEST_GUILESS_MAIN(ScenesTest)
#include "ScenesTest.moc"
