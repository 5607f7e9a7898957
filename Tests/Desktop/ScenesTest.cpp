#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestKeyboard.h"
#include "Desktop/Support/TestProgram.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr HotKeyCombo sceneKey{18, HotKeyCombo::control | HotKeyCombo::option};
constexpr HotKeyCombo stashKey{1, HotKeyCombo::option | HotKeyCombo::shift};
constexpr Rect readersPlace{2200, 150, 700, 500};

/// Two displays and a window manager; one installed application, the reader.
struct Desk {
    explicit Desk(const QString &windowManager)
    {
        server.plug(sideBySide());
        manager = std::make_unique<TestWindowManager>(windowManager);
        keyboard = std::make_unique<TestKeyboard>();
        const QDir data(qEnvironmentVariable("XDG_DATA_HOME"));
        data.mkpath(QStringLiteral("applications"));
        QFile file(data.filePath(QStringLiteral("applications/org.example.Reader.desktop")));
        const QString entry = QStringLiteral("[Desktop Entry]\nType=Application\nName=Reader\n"
                                             "Exec=%1 --title reader\nStartupWMClass=qt-client\n")
                                  .arg(TestClient::program(ClientKind::Qt));
        if (!file.open(QIODevice::WriteOnly) || file.write(entry.toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    TestClient &open(ClientKind kind, const char *title, const Rect &frame,
                     const char *application = "Tool")
    {
        TestClient &client =
            kind == ClientKind::Plain ? clients.emplace_back(
                kind, QString::fromLatin1(title),
                QStringList{QStringLiteral("--class"), QString::fromLatin1(application)})
                                      : clients.emplace_back(kind, QString::fromLatin1(title));
        probe.move(client.window(), frame);
        require(
            [&] {
                const auto now = probe.frame(client.window());
                return now && std::abs(now->x - frame.x) < 40 && std::abs(now->y - frame.y) < 40;
            },
            "an opened window");
        probe.restingFrame(client.window());
        return client;
    }
    void close(const char *title)
    {
        const auto window = probe.find(QString::fromLatin1(title));
        clients.remove_if([&](const TestClient &client) { return client.window() == window; });
        require([&] { return !probe.find(QString::fromLatin1(title)); }, "a closed window");
    }
    void focus(const TestClient &client)
    {
        probe.activate(client.window());
        require([&] { return probe.activeWindow() == client.window(); }, "the focus");
    }
    bool isIconic(const TestClient &client) const
    {
        return probe.hasState(client.window(), "_NET_WM_STATE_HIDDEN");
    }
    QStringList frames() const
    {
        QStringList frames;
        for (const TestClient &client : clients)
            frames << described(probe.title(client.window()), probe.restingFrame(client.window()));
        return frames;
    }
    /// Until the log says that it was heard: before the key is grabbed it goes to a window.
    void pressUntilLogged(const TestProgram &program, const HotKeyCombo &combo, const char *text)
    {
        require(
            [&] {
                keyboard->press(combo);
                return waitUntil([&] { return program.logged(text) > 0; }, 3'000);
            },
            text);
    }

    TestServer server;
    DesktopProbe probe;
    std::unique_ptr<TestWindowManager> manager;
    std::unique_ptr<TestKeyboard> keyboard;
    std::list<TestClient> clients;
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

/// Scenes, stash and placement by the program itself, with windows of real programs.
class ScenesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSceneOpensWhatIsMissingAndHidesTheOthers();
    void theStashBringsEightWindowsBack_data() { forEachManager(); }
    void theStashBringsEightWindowsBack();
    void aStartedProgramLandsInItsPlace();
};

void ScenesTest::aSceneOpensWhatIsMissingAndHidesTheOthers()
{
    Desk desk(QStringLiteral("openbox"));
    TestClient &writer = desk.open(ClientKind::Plain, "writer", {100, 100, 600, 500}, "Writer");
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

    desk.close("reader");
    desk.probe.move(writer.window(), {900, 300, 400, 300});
    TestClient &chat = desk.open(ClientKind::Plain, "chat", {300, 300, 400, 300}, "Chat");
    TestProgram program(files);
    desk.pressUntilLogged(program, sceneKey, "scene applied: Reading, ");
    require([&] { return desk.isIconic(chat); }, "a hidden application");
    require([&] { return desk.probe.find(QStringLiteral("reader")).has_value(); },
            "an opened application");
    program.awaitLogged(1, "launch placement: moved 1 windows for Reader");
    const auto reader = desk.probe.find(QStringLiteral("reader")).value();
    QCOMPARE(desk.probe.restingFrame(reader), readersPlace);
    QCOMPARE(desk.probe.restingFrame(writer.window()), (Rect{100, 100, 600, 500}));
    QVERIFY(!desk.isIconic(writer));
    program.endCleanly(SIGTERM);
    QVERIFY(
        desk.probe.find(QStringLiteral("reader")).has_value()); // it does not end with the program
}

void ScenesTest::theStashBringsEightWindowsBack()
{
    QFETCH(QString, manager);
    Desk desk(manager);
    desk.open(ClientKind::Plain, "one", {100, 100, 500, 400});
    TestClient &focused = desk.open(ClientKind::Plain, "two", {160, 160, 500, 400});
    desk.open(ClientKind::Plain, "other", {220, 220, 500, 400}, "Other");
    desk.open(ClientKind::StaticGravity, "static", {2000, 100, 500, 400});
    desk.open(ClientKind::Qt, "qt", {2100, 200, 600, 450});
    desk.open(ClientKind::Increments, "terminal", {2300, 300, 600, 450});
    desk.open(ClientKind::GtkDecorated, "gtk.tar", {700, 400, 700, 500});
    TestClient &small = desk.open(ClientKind::Plain, "small", {900, 600, 300, 200}, "Small");
    desk.probe.minimise(small.window());
    require([&] { return desk.isIconic(small); }, "a minimised window");
    desk.focus(focused);
    TestProgram program;
    program.awaitLogged(1, "learned layout: 7 windows");
    const QStringList frames = desk.frames();
    const auto order = [&] {
        auto windows = desk.probe.stacking();
        std::erase(windows, small.window()); // wherever a minimised window counts
        return windows;
    };
    const auto orderBefore = order();

    for (int round = 1; round <= 2; ++round) {
        desk.pressUntilLogged(program, stashKey, "stash: hid ");
        for (const TestClient &client : desk.clients)
            require([&] { return desk.isIconic(client); }, "a stashed window");
        desk.keyboard->press(stashKey);
        program.awaitLogged(round, "stash: brought desk back");
        program.awaitLogged(round, "restore report: 7/7 restored, 0 failed");
        for (const TestClient &client : desk.clients)
            require([&] { return desk.isIconic(client) == (&client == &small); }, "the return");
        QTRY_COMPARE(desk.probe.activeWindow(), std::optional(focused.window()));
        QCOMPARE(desk.frames(), frames);
        QTRY_COMPARE(order(), orderBefore);
    }
}

void ScenesTest::aStartedProgramLandsInItsPlace()
{
    Desk desk(QStringLiteral("openbox"));
    desk.open(ClientKind::Plain, "writer", {100, 100, 600, 500}, "Writer");
    desk.open(ClientKind::Qt, "reader", readersPlace);
    TestProgram program(learned(desk));
    const char ready[] = "learned layout: 1 windows";
    desk.close("reader");
    desk.probe.move(desk.clients.front().window(), {110, 100, 600, 500});
    // It knows of the closing once it has learned the desk without the reader.
    desk.pressUntilLogged(program, {1, HotKeyCombo::command | HotKeyCombo::shift}, ready);
    for (int launch = 1; launch <= 3; ++launch) {
        ChildProcess reader(
            QStringLiteral("gio"),
            {QStringLiteral("launch"), qEnvironmentVariable("XDG_DATA_HOME")
                                           + QStringLiteral("/applications/"
                                                            "org.example.Reader.desktop")});
        reader.start();
        require([&] { return desk.probe.find(QStringLiteral("reader")).has_value(); },
                "the reader");
        const auto window = desk.probe.find(QStringLiteral("reader")).value();
        QElapsedTimer sinceManaged;
        sinceManaged.start();
        require([&] { return desk.probe.frame(window) == readersPlace; }, "the reader's place");
        qInfo("in place %lld ms after it was managed", sinceManaged.elapsed());
        program.awaitLogged(launch, "launch placement: moved 1 windows for Reader");
        desk.probe.close(window);
        require([&] { return !desk.probe.find(QStringLiteral("reader")); }, "the reader's end");
    }
}

QTEST_GUILESS_MAIN(ScenesTest)
#include "ScenesTest.moc"
