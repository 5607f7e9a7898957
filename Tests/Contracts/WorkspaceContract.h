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

    void aHiddenDeskComesBackInItsOrderAndWithItsFocus()
    {
        AccessibilityPort &windows = m_rig.accessibility();
        const WindowElementRef focused = windows.focusedWindow();
        hide(mail);
        QVERIFY(m_rig.isOnScreen(m_first) && m_rig.isOnScreen(m_second) && !isHidden(editor));
        unhide(mail);
        QVERIFY(m_rig.waitUntil([this] { return onScreen() == m_before; }));
        QCOMPARE(m_rig.focused(), m_second);
        for (const QString &application : {mail, editor})
            hide(application);
        QVERIFY(onScreen().empty() && !windows.focusedWindow());
        for (const QString &title : {m_first, m_second})
            QCOMPARE(window(editor, title).isMinimized.value_or(false), false);
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

    void aMinimisedWindowStaysSoAndOneThatTheUserBringsBackIsHisAgain()
    {
        m_rig.minimize(m_first);
        hide(editor);
        unhide(editor);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_second); }));
        QVERIFY(!m_rig.isOnScreen(m_first));
        QCOMPARE(window(editor, m_first).isMinimized, true);
        hide(editor);
        m_rig.restore(m_second);
        QVERIFY(m_rig.waitUntil([this] { return !isHidden(editor); }));
    }

    void aHiddenWindowCanBeMoved()
    {
        hide(mail);
        const WindowElementRef element = window(mail, m_other).element;
        m_rig.accessibility().apply(element, Point{710, 415}, Size{420, 330});
        const FrameReading after = m_rig.accessibility().readFrame(element);
        QVERIFY(after.position == (Point{710, 415}) && after.size == (Size{420, 330}));
        QVERIFY(!m_rig.isOnScreen(m_other) && isHidden(mail));
        unhide(mail);
        QVERIFY(m_rig.waitUntil([this] { return m_rig.isOnScreen(m_other); }));
        const WindowAttributes back = window(mail, m_other);
        QVERIFY(back.position == after.position && back.size == after.size);
    }

    void aLaunchIsToldOnceWithTheFirstWindow()
    {
        QStringList launched;
        port().setLaunchCallback([&](const RunningApplication &application) {
            launched.append(application.bundleID.value());
        });
        const QString firstOfClock = open(clock, {50, 60, 300, 200});
        QVERIFY(m_rig.waitUntil([&] { return launched == QStringList{m_rig.bundleID(clock)}; }));
        open(editor, {90, 60, 300, 200}); // ran before
        const QString secondOfClock = open(clock, {130, 60, 300, 200});
        for (const QString &title : {firstOfClock, secondOfClock})
            close(title);
        open(clock, {50, 60, 300, 200}); // it had quit
        QVERIFY(m_rig.waitUntil([&] { return launched.size() > 1; }));
        QCOMPARE(launched, (QStringList{m_rig.bundleID(clock), m_rig.bundleID(clock)}));
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
