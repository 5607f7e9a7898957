#include "Panorel/Settings/ScenesPane.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/ViewProbe.h"

#include <QFileDialog>
#include <QTemporaryDir>

using namespace Panorel;

namespace {

/// A keyboard of which every key is the digit 1.
SettingsEnvironment oneKeyBoard()
{
    SettingsEnvironment environment;
    environment.keyCodeOf = [](quint32, quint32) { return 18; };
    return environment;
}

struct Pane {
    SettingsProgram program;
    std::vector<QUuid> edited;
    ScenesPane pane{program.model, [this](const QUuid &id) { edited.push_back(id); },
                    oneKeyBoard()};
    ViewProbe view{pane};

    Pane() = default;
    explicit Pane(std::initializer_list<const char *> scenes)
    {
        for (const char *scene : scenes)
            program.addScene(scene);
        open();
    }
    void open() { view.open({700, 620}); }
    NameField &name(int nth) { return *view.shown<NameField>().at(nth); }
    QStringList names()
    {
        QStringList names;
        for (const NameField *field : view.shown<NameField>())
            names << field->name();
        return names;
    }
    void write(int nth, const QString &text, Qt::Key end)
    {
        QTest::mouseClick(&name(nth), Qt::LeftButton);
        name(nth).selectAll();
        QTest::keyClick(&name(nth), Qt::Key_Delete);
        name(nth).insert(text);
        QTest::keyClick(&name(nth), end);
    }
};

QStringList listed(const char *names)
{
    return QString::fromUtf8(names).split(u'|');
}

} // namespace

class ScenesPaneTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFirstSceneIsMadeWhereThereIsNone()
    {
        Pane test;
        test.open();
        QVERIFY(test.view.shown<NameField>().isEmpty());
        test.view.photograph("scenes-empty");
        test.view.click("Add scene from current windows");
        QCOMPARE(test.names(), listed("Scene 1"));
        QVERIFY(test.view.reads("2 windows"));
        QVERIFY(test.name(0).hasFocus()); // to be given its own name at once
        QTest::keyClicks(&test.name(0), QStringLiteral("Writing"));
        test.view.click("Apply"); // a click elsewhere ends the writing
        QCOMPARE(test.program.sceneNames(), listed("Writing"));
        QCOMPARE(test.program.model.usage().sceneSwitches, 1);
        test.view.click("Edit…");
        QCOMPARE(test.edited, std::vector{test.program.model.scenes().at(0).id});
    }

    void scenesStandUnderTheirDesksTheCurrentOneFirst()
    {
        Pane test;
        test.program.addForeignScene("Away");
        test.program.addScene("Writing");
        test.program.addForeignScene("Far away");
        test.program.addScene("Mail");
        test.open();
        QCOMPARE(test.names(), listed("Writing|Mail|Away|Far away"));
        QVERIFY(test.view.reads("Current desk") && test.view.reads("No displays"));
        test.view.photograph("scenes-desks");
        test.program.undock(); // and another desk is the current one
        test.program.scheduler.advance(std::chrono::seconds(10));
        test.program.model.refresh();
        QVERIFY(!test.view.reads("Current desk"));
    }

    void aNameIsWrittenInItsPlace()
    {
        const QString old = QStringLiteral("Writing");
        const QString given = QStringLiteral("R&D");
        const struct {
            const char *how;
            QString text;
            Qt::Key end;
            QString name;
        } cases[] = {{"taken by Enter", given, Qt::Key_Return, given},
                     {"taken by Tab", given, Qt::Key_Tab, given},
                     {"given up by Escape", given, Qt::Key_Escape, old},
                     {"empty", {}, Qt::Key_Return, old},
                     {"blank", QStringLiteral(" \n "), Qt::Key_Return, old},
                     {"two lines", QStringLiteral("a\nb"), Qt::Key_Return, QStringLiteral("a b")},
                     {"300 characters", QString(300, u'x'), Qt::Key_Return, QString(300, u'x')}};
        for (const auto &[how, text, end, name] : cases) {
            Pane test{"Writing"};
            test.write(0, text, end);
            QVERIFY2(test.program.sceneNames() == QStringList{name}, how);
            QVERIFY2(test.name(0).name() == name, how);
            QVERIFY2(!test.name(0).hasFocus() && test.pane.isVisible(), how);
            QVERIFY2(test.name(0).width() < test.pane.width(), how);
        }
    }

    void whatIsBeingWrittenOutlivesAChange()
    {
        Pane test{"Writing"};
        QTest::mouseClick(&test.name(0), Qt::LeftButton);
        test.name(0).setText(QStringLiteral("Half"));
        test.program.addScene("Mail");
        ViewProbe::settle();
        QCOMPARE(test.name(0).text(), QStringLiteral("Half"));
        QVERIFY(test.name(0).hasFocus());
        test.program.model.removeScene(test.program.model.scenes().at(0).id);
        ViewProbe::settle(); // the scene goes while its name is written
        QCOMPARE(test.program.sceneNames(), listed("Mail"));
    }

    void optionsAreStoredAtOnce()
    {
        Pane test{"Writing"};
        QVERIFY(!test.view.find("Hide other applications"));
        test.view.click("Key and options");
        QVERIFY(test.view.reads("Off: the scene's windows come forward and everything else stays "
                                "where it is. On: apps with no window in the scene get hidden — "
                                "the Dock brings them back."));
        QVERIFY(test.view.reads("Applies the scene from anywhere."));
        const auto scene = [&] { return test.program.model.scenes().at(0); };
        test.view.click("Hide other applications");
        QVERIFY(scene().hidesOtherApps && !scene().opensMissingApps);
        test.view.click("Open missing applications");
        test.view.click("Hide other applications");
        QVERIFY(!scene().hidesOtherApps && scene().opensMissingApps);
        test.view.photograph("scenes-options");
        SceneRecord keyed = scene();
        keyed.hotKey = HotKeyCombo{2, HotKeyCombo::option};
        test.program.model.updateScene(keyed);
        for (const bool isTaken : {true, false}) { // by another action, and given up again
            test.program.model.setKey(FixedAction::Undo,
                                      isTaken ? keyed.hotKey : std::optional<HotKeyCombo>());
            QCOMPARE(test.view.reads("Already used by Undo last restore"), isTaken);
        }

        test.view.click("Shortcut for Key");
        QTest::keyClick(test.view.find("Shortcut for Key"), Qt::Key_1, Qt::AltModifier);
        QCOMPARE(scene().hotKey, (HotKeyCombo{18, HotKeyCombo::option}));
        QVERIFY(test.view.reads("2 windows · Alt+1"));
        test.program.addScene("Mail", scene().hotKey);
        QVERIFY(test.view.reads("Already used by Mail"));
        test.view.click("Clear the shortcut for Key");
        QVERIFY(!scene().hotKey && !test.view.reads("Already used by Mail"));
        test.view.click("Hide options");
        QVERIFY(!test.view.reads("Applies the scene from anywhere."));
    }

    void aPictureIsChosenShownAndRemoved()
    {
        QTemporaryDir folder;
        const QString good = folder.filePath(QStringLiteral("hills.png"));
        const QString bad = folder.filePath(QStringLiteral("bad.png"));
        QImage picture(640, 400, QImage::Format_RGB32);
        picture.fill(QColor(0x5a8f7b));
        QVERIFY(picture.save(good));
        QFile broken(bad);
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("\x89PNG nothing") > 0);
        broken.close();

        Pane test{"Writing"};
        test.view.click("Key and options");
        const auto path = [&] { return test.program.model.scenes().at(0).wallpaperPath; };
        for (const QString &file : {good, bad}) {
            test.view.click("Choose…");
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            field->setText(file);
            QTest::keyClick(field, Qt::Key_Return);
            QTRY_COMPARE(path(), file);
            QVERIFY(test.view.reads(file == good ? "hills.png" : "bad.png can't be read"));
            ViewProbe::settle();
            test.view.photograph(file == good ? "scenes-picture" : "scenes-picture-unreadable");
        }
        test.view.click("Remove");
        QCOMPARE(path(), std::nullopt);
        QVERIFY(!test.view.find("Remove"));
    }

    void aDeletedSceneComesBackWhole()
    {
        Pane test{"Writing", "Mail"};
        const QUuid id = test.program.model.scenes().at(0).id;
        const SceneRecord before = *test.program.model.scene(id);
        test.view.click("Delete…");
        QVERIFY(ViewProbe::dialog().reads("Delete “Writing”?"));
        ViewProbe::dialog().photograph("scenes-delete");
        QCOMPARE(ViewProbe::dialog().focused(), QStringLiteral("Cancel"));
        ViewProbe::dialog().press(Qt::Key_Return);
        QCOMPARE(test.program.sceneNames(), listed("Writing|Mail"));
        test.view.click("Delete…");
        ViewProbe::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(test.view.reads("“Writing” was deleted."));
        test.view.click("Undo");
        QCOMPARE(test.names(), listed("Mail|Writing"));
        QCOMPARE(*test.program.model.scene(id), before);
        QVERIFY(!test.view.find("Undo"));

        test.view.click("Delete…", 1); // it goes by another way while the question stands
        test.program.model.removeScene(id);
        ViewProbe::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(!test.view.find("Undo"));
    }

    void theKeyboardReachesEverythingInOrder()
    {
        Pane test{"Writing"};
        test.view.find("Add scene from current windows")->setFocus(Qt::TabFocusReason);
        QStringList visited;
        for (int i = 0; i < 6; ++i) {
            visited << QApplication::focusWidget()->accessibleName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(
            visited,
            listed(
                "Add scene from current windows|Scene name|Apply|Edit…|Key and options|Delete…"));
    }

    void namesFromAnywhereAreText()
    {
        // Nothing is so long, so marked up or so broken as a name from a file.
        const QString nastyName = QStringLiteral("<b>A&B</b>\n") + QString(300, u'x');
        Pane test;
        test.program.addScene(qUtf8Printable(nastyName));
        test.program.addScene("y");
        test.program.model.renameDesk(test.program.model.currentConfigID(), nastyName);
        test.open();
        QVERIFY(test.pane.widget()->width() <= test.pane.width());
        test.view.photograph("scenes-nasty");
    }
};

QTEST_MAIN(ScenesPaneTests)
#include "ScenesPaneTests.moc"
