#include "Panorel/Settings/ScenesPane.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/ViewProbe.h"
#include "Support/TestHome.h"

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
        const QString desk = test.program.model.currentConfigID();
        test.program.model.renameDesk(desk, QStringLiteral("<b>A&B</b>\n") + QString(300, u'x'));
        test.open();
        QVERIFY(test.pane.widget()->width() <= test.pane.width());
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
        QVERIFY(test.view.reads("Applies the scene from anywhere."));
        const auto scene = [&] { return test.program.model.scenes().at(0); };
        test.view.click("Hide other applications");
        QVERIFY(scene().hidesOtherApps && !scene().opensMissingApps);
        test.view.click("Open missing applications");
        test.view.click("Hide other applications");
        QVERIFY(!scene().hidesOtherApps && scene().opensMissingApps);
        test.view.photograph("scenes-options");

        test.view.click("Shortcut for Key");
        QTest::keyClick(test.view.find("Shortcut for Key"), Qt::Key_1, Qt::AltModifier);
        QCOMPARE(scene().hotKey, (HotKeyCombo{18, HotKeyCombo::option}));
        QVERIFY(test.view.reads("2 windows · Alt+1"));
        for (const bool isTaken : {true, false}) { // by another action, and given up again
            test.program.model.setKey(FixedAction::Undo,
                                      isTaken ? scene().hotKey : std::optional<HotKeyCombo>());
            QCOMPARE(test.view.reads("Already used by Undo last restore"), isTaken);
        }
        test.view.click("Clear the shortcut for Key");
        QVERIFY(!scene().hotKey);
        test.view.click("Hide options");
        QVERIFY(!test.view.reads("Applies the scene from anywhere."));
    }

    void aPictureIsChosenShownAndRemoved()
    {
        const QTemporaryDir folder;
        const QString good = folder.filePath(QStringLiteral("hills.png"));
        const QString bad = folder.filePath(QStringLiteral("bad.png"));
        QImage picture(640, 400, QImage::Format_RGB32);
        picture.fill(QColor(0x5a8f7b));
        QVERIFY(picture.save(good));
        writeFile(bad, "\x89PNG nothing");

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
        const SceneRecord before = test.program.model.scenes().at(0);
        for (const char *answer : {"Cancel", "Delete"}) {
            test.view.click("Delete…");
            QCOMPARE(test.names(), listed("Writing|Mail"));
            const ViewProbe question = ViewProbe::dialog();
            QVERIFY(question.reads("Delete “Writing”?"));
            QCOMPARE(question.focused(), QStringLiteral("Cancel"));
            question.photograph("scenes-delete");
            question.click(answer);
        }
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(test.view.reads("“Writing” was deleted."));
        test.view.click("Undo");
        QCOMPARE(test.names(), listed("Mail|Writing"));
        QCOMPARE(test.program.model.scenes().at(1), before);
        QVERIFY(!test.view.find("Undo"));

        test.view.click("Delete…", 1); // it goes by another way while the question stands
        test.program.model.removeScene(before.id);
        ViewProbe::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(!test.view.find("Undo"));
    }

    void theKeyboardReachesEverythingInOrder()
    {
        Pane test{"Writing"};
        test.view.find("Add scene from current windows")->setFocus(Qt::TabFocusReason);
        for (const char *next : {"Scene name", "Apply", "Edit…", "Key and options", "Delete…"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->accessibleName(), QString::fromUtf8(next));
        }
    }
};

QTEST_MAIN(ScenesPaneTests)
#include "ScenesPaneTests.moc"
