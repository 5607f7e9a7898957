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

    void open()
    {
        pane.resize(700, 620);
        pane.show();
        QVERIFY(QTest::qWaitForWindowActive(&pane));
        ViewProbe::settle();
    }
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
    static ViewProbe dialog()
    {
        QWidget *window = QApplication::activeModalWidget();
        if (!window)
            qFatal("no dialog");
        return {*window};
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
        QVERIFY(test.program.logged("scene applied: Writing, 2 of 2 windows restored")
                || test.program.model.usage().sceneSwitches == 1);
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

    void aNameIsWrittenInItsPlace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Qt::Key>("end");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *tag, const QString &text, Qt::Key end,
                            const QString &name) { QTest::newRow(tag) << text << end << name; };
        const QString old = QStringLiteral("Writing");
        row("taken by Enter", QStringLiteral("R&D"), Qt::Key_Return, QStringLiteral("R&D"));
        row("taken by Tab", QStringLiteral("R&D"), Qt::Key_Tab, QStringLiteral("R&D"));
        row("given up by Escape", QStringLiteral("R&D"), Qt::Key_Escape, old);
        row("empty", {}, Qt::Key_Return, old);
        row("blank", QStringLiteral(" \n "), Qt::Key_Return, old);
        row("two lines", QStringLiteral("a\nb"), Qt::Key_Return, QStringLiteral("a b"));
        row("300 characters", QString(300, u'x'), Qt::Key_Return, QString(300, u'x'));
    }

    void aNameIsWrittenInItsPlace()
    {
        QFETCH(QString, text);
        QFETCH(Qt::Key, end);
        QFETCH(QString, name);
        Pane test;
        test.program.addScene("Writing");
        test.open();
        test.write(0, text, end);
        QCOMPARE(test.program.sceneNames(), QStringList{name});
        QCOMPARE(test.name(0).name(), name);
        QVERIFY(!test.name(0).hasFocus() && test.pane.isVisible());
        QVERIFY(test.name(0).width() < test.pane.width());
    }

    void whatIsBeingWrittenOutlivesAChange()
    {
        Pane test;
        test.program.addScene("Writing");
        test.open();
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
        Pane test;
        test.program.addScene("Writing");
        test.open();
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
        SceneRecord rival = test.program.addScene("Mail");
        rival.hotKey = scene().hotKey;
        test.program.model.updateScene(rival);
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

        Pane test;
        test.program.addScene("Writing");
        test.open();
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
        Pane test;
        const QUuid id = test.program.addScene("Writing").id;
        test.program.addScene("Mail");
        test.open();
        const SceneRecord before = *test.program.model.scene(id);
        test.view.click("Delete…");
        QVERIFY(Pane::dialog().reads("Delete “Writing”?"));
        Pane::dialog().photograph("scenes-delete");
        Pane::dialog().click("Cancel");
        QCOMPARE(test.program.sceneNames(), listed("Writing|Mail"));
        test.view.click("Delete…");
        Pane::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(test.view.reads("“Writing” was deleted."));
        test.view.click("Undo");
        QCOMPARE(test.names(), listed("Mail|Writing"));
        QCOMPARE(*test.program.model.scene(id), before);
        QVERIFY(!test.view.find("Undo"));

        test.view.click("Delete…", 1); // it goes by another way while the question stands
        test.program.model.removeScene(id);
        Pane::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(!test.view.find("Undo"));
    }

    void theKeyboardReachesEverythingInOrder()
    {
        Pane test;
        test.program.addScene("Writing");
        test.open();
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
        Pane test;
        SceneRecord scene = test.program.addScene("x");
        scene.name = nastyName;
        test.program.model.updateScene(scene);
        test.program.addScene("y");
        test.program.model.renameDesk(test.program.model.currentConfigID(), nastyName);
        test.open();
        QVERIFY(test.pane.widget()->width() <= test.pane.width());
        test.view.photograph("scenes-nasty");
    }
};

QTEST_MAIN(ScenesPaneTests)
#include "ScenesPaneTests.moc"
