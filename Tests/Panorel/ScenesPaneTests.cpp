#include "Panorel/Settings/ScenesPane.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/ViewProbe.h"

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

    explicit Pane(std::initializer_list<const char *> scenes = {})
    {
        for (const char *scene : scenes)
            program.addScene(scene);
        view.open({700, 620});
    }
    NameField &name(int nth) { return *view.shown<NameField>().at(nth); }
    QStringList names()
    {
        QStringList names;
        for (const NameField *field : view.shown<NameField>())
            names << field->name();
        return names;
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
        test.view.photograph("scenes-empty");
        test.view.click("Add scene from current windows");
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
        SceneRecord away = test.program.addScene("Away");
        test.program.model.removeScene(away.id);
        away.configID = QStringLiteral("elsewhere");
        away.layout.displays.clear();
        test.program.model.addScene(away);
        test.program.addScene("Writing");
        const QString desk = test.program.model.currentConfigID();
        test.program.model.renameDesk(desk, QStringLiteral("<b>A&B</b>\n") + QString(300, u'x'));
        QTRY_COMPARE(test.names(), listed("Writing|Away"));
        QVERIFY(test.pane.widget()->width() <= test.pane.width());
        QVERIFY(test.view.reads("Current desk") && test.view.reads("No displays"));
        test.view.photograph("scenes-desks");
    }

    void aNameIsWrittenInItsPlace()
    {
        const QString given = QStringLiteral("R&D");
        const QString tooWide(300, u'x');
        for (const auto &[text, end, name] :
             {std::tuple(given, Qt::Key_Return, given),
              {given, Qt::Key_Tab, given},
              {given, Qt::Key_Escape, QStringLiteral("Writing")},
              {QStringLiteral(" \n "), Qt::Key_Return, QStringLiteral("Writing")},
              {QStringLiteral("a\nb"), Qt::Key_Return, QStringLiteral("a b")},
              {tooWide, Qt::Key_Return, tooWide}}) {
            Pane test{"Writing"};
            QTest::mouseClick(&test.name(0), Qt::LeftButton);
            test.name(0).selectAll();
            test.name(0).insert(text);
            QTest::keyClick(&test.name(0), end);
            QCOMPARE(test.program.sceneNames(), QStringList{name});
            QCOMPARE(test.name(0).name(), name);
            QVERIFY(!test.name(0).hasFocus() && test.name(0).width() < test.pane.width());
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
        test.program.model.setKey(FixedAction::Undo, scene().hotKey);
        QVERIFY(test.view.reads("Already used by Undo last restore"));
        test.view.click("Clear the shortcut for Key");
        QVERIFY(!scene().hotKey);
    }

    void aDeletedSceneComesBackWhole()
    {
        Pane test{"Writing", "Mail"};
        const SceneRecord before = test.program.model.scenes().at(0);
        for (const char *answer : {"Cancel", "Delete"}) {
            test.view.click("Delete…");
            QCOMPARE(test.names(), listed("Writing|Mail"));
            QCOMPARE(ViewProbe::dialog().focused(), QStringLiteral("Cancel"));
            ViewProbe::dialog().click(answer);
        }
        QCOMPARE(test.names(), listed("Mail"));
        test.view.click("Undo");
        QCOMPARE(test.names(), listed("Mail|Writing"));
        QCOMPARE(test.program.model.scenes().at(1), before);

        test.view.click("Delete…", 1); // it goes by another way while the question stands
        test.program.model.removeScene(before.id);
        ViewProbe::dialog().click("Delete");
        QCOMPARE(test.names(), listed("Mail"));
        QVERIFY(!test.view.find("Undo"));
    }
};

QTEST_MAIN(ScenesPaneTests)
#include "ScenesPaneTests.moc"
