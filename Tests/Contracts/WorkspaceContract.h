#pragma once

#include "Contracts/DesktopContract.h"

namespace Panorel {

/// What the stash, the scenes and launch placement rely on: hiding and bringing back without loss,
/// and hearing of launches.
class WorkspaceContract : public DesktopContract {
    Q_OBJECT

public:
    explicit WorkspaceContract(DesktopRig &rig) : DesktopContract(rig) {}

private Q_SLOTS:
    void init()
    {
        m_first = open(editor, {100, 120, 400, 300});
        m_other = open(mail, {300, 500, 450, 320});
        m_second = open(editor, {600, 200, 500, 350});
        m_before = onScreen();
    }

    void cleanup()
    {
        port().setLaunchCallback({});
        closeAll();
    }

    void hidingTakesTheApplicationsWindowsAwayAndNoOther()
    {
        hide(mail);
        QVERIFY(m_rig.isOnScreen(m_first) && m_rig.isOnScreen(m_second));
        QVERIFY(!isHidden(editor));
        QCOMPARE(m_rig.focused(), m_second);
        hide(editor);
        QVERIFY(onScreen().empty());
        for (const QString &title : {m_first, m_second})
            QCOMPARE(window(editor, title).isMinimized.value_or(false), false);
        QVERIFY(!m_rig.accessibility().focusedWindow());
    }

    void whatComesBackHasItsGeometryAndOrderAndLeavesTheFocus()
    {
        for (int round = 0; round < 2; ++round) {
            hide(mail);
            unhide(mail);
            QVERIFY(m_rig.waitUntil([this] { return onScreen() == m_before; }));
            QCOMPARE(m_rig.focused(), m_second);
        }
        port().unhide(pidOf(mail)); // not hidden, so nothing to do
        QVERIFY(onScreen() == m_before);
    }

    void aWholeDeskComesBackInItsOrderAndWithItsFocus()
    {
        AccessibilityPort &windows = m_rig.accessibility();
        const WindowElementRef focused = windows.focusedWindow();
        QVERIFY(focused);
        for (const QString &application : {mail, editor})
            hide(application);
        windows.focus(focused); // hidden, so nothing to do
        QVERIFY(!m_rig.isOnScreen(m_second));
        for (const QString &application : {mail, editor})
            unhide(application);
        windows.raise({window(editor, m_first).element, window(mail, m_other).element,
                       window(editor, m_second).element});
        windows.focus(focused);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.focused() == m_second; }));
        QVERIFY(m_rig.waitUntil([this] { return onScreen() == m_before; }));
    }

    void aWindowThatWasMinimisedStaysSo()
    {
        m_rig.minimize(m_first);
        hide(editor);
        QCOMPARE(window(editor, m_first).isMinimized, true);
        QCOMPARE(window(editor, m_second).isMinimized.value_or(false), false);
        unhide(editor);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_second); }));
        QVERIFY(!m_rig.isOnScreen(m_first));
        QCOMPARE(window(editor, m_first).isMinimized, true);
    }

    void aHiddenWindowCanBeMoved()
    {
        hide(mail);
        const WindowElementRef element = window(mail, m_other).element;
        m_rig.accessibility().apply(element, Point{710, 415}, Size{420, 330});
        m_rig.accessibility().raise({element});
        const FrameReading after = m_rig.accessibility().readFrame(element);
        QVERIFY(after.position == (Point{710, 415}) && after.size == (Size{420, 330}));
        QVERIFY(!m_rig.isOnScreen(m_other) && isHidden(mail));
        unhide(mail);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_other); }));
        QVERIFY(window(mail, m_other).position == after.position);
        QVERIFY(window(mail, m_other).size == after.size);
    }

    void aWindowThatTheUserBringsBackIsHisAgain()
    {
        hide(editor);
        m_rig.restore(m_first);
        QVERIFY(m_rig.waitUntil([this] { return !isHidden(editor); }));
        QVERIFY(!m_rig.isOnScreen(m_second));
        m_rig.minimize(m_first);
        QCOMPARE(window(editor, m_first).isMinimized, true);
        port().unhide(pidOf(editor)); // what is still hidden comes back all the same
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_second); }));
        QVERIFY(!m_rig.isOnScreen(m_first));
    }

    void aWindowThatIsClosedWhileHiddenIsNotMissed()
    {
        hide(editor);
        close(m_second);
        QVERIFY(isHidden(editor));
        unhide(editor);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_first); }));
        port().hide(987654);
        port().unhide(987654);
        QVERIFY(m_rig.isOnScreen(m_first));
    }

    void aLaunchIsToldOnceWithTheFirstWindow()
    {
        QStringList launched;
        const auto listen = [&](const RunningApplication &application) {
            QCOMPARE(application.policy, ActivationPolicy::Regular);
            launched.append(application.bundleID.value());
        };
        port().setLaunchCallback(listen);
        const QString firstOfClock = open(clock, {50, 60, 300, 200});
        QVERIFY(m_rig.waitUntil([&] { return launched == QStringList{m_rig.bundleID(clock)}; }));
        open(editor, {90, 60, 300, 200}); // ran before
        const QString secondOfClock = open(clock, {130, 60, 300, 200});
        for (const QString &title : {firstOfClock, secondOfClock})
            close(title);
        open(clock, {50, 60, 300, 200}); // it had quit
        QVERIFY(m_rig.waitUntil([&] { return launched.size() == 2; }));
        port().setLaunchCallback({});
        open(QStringLiteral("paint"), {50, 60, 300, 200});
        port().setLaunchCallback(listen);
        open(QStringLiteral("music"), {50, 60, 300, 200});
        QVERIFY(m_rig.waitUntil([&] { return launched.size() == 3; }));
        QCOMPARE(launched, (QStringList{m_rig.bundleID(clock), m_rig.bundleID(clock),
                                        m_rig.bundleID(QStringLiteral("music"))}));
    }

private:
    static inline const QString clock = QStringLiteral("clock");

    WorkspacePort &port() { return m_rig.workspace(); }

    bool isHidden(const QString &application) { return running(application).isHidden; }

    /// The application's number is the same hidden or not.
    void hide(const QString &application)
    {
        const ProcessIdentifier pid = pidOf(application);
        port().hide(pid);
        QVERIFY(m_rig.waitUntil([&] { return isHidden(application); }));
        QCOMPARE(pidOf(application), pid);
    }
    void unhide(const QString &application)
    {
        port().unhide(pidOf(application));
        QVERIFY(m_rig.waitUntil([&] { return !isHidden(application); }));
    }

    OnScreen m_before;
    QString m_first;
    QString m_other;
    QString m_second;
};

} // namespace Panorel
