#pragma once

#include "Contracts/DesktopContract.h"

namespace Panorel {

/// What the engines rely on in every platform's windows: accessibility, window list, workspace.
class AccessibilityContract : public DesktopContract {
    Q_OBJECT

public:
    explicit AccessibilityContract(DesktopRig &rig) : DesktopContract(rig) {}

private Q_SLOTS:
    void init()
    {
        m_first = open(editor, {100, 120, 400, 300});
        m_second = open(editor, secondFrame);
        m_other = open(mail, otherFrame);
    }

    void cleanup() { closeAll(); }

    void windowsAreListedFrontToBackAndRaisedWithoutTheFocus()
    {
        QCOMPARE(titles(editor), (QStringList{m_second, m_first}));
        QCOMPARE(titles(mail), QStringList{m_other});
        const QString focused = m_rig.focused();
        port().raise({window(editor, m_second).element, window(editor, m_first).element});
        QVERIFY(m_rig.waitUntil([&] { return titles(editor) == QStringList{m_first, m_second}; }));
        QCOMPARE(m_rig.focused(), focused);
    }

    void windowsAreMovedToThePixelUntilTheyAreGone()
    {
        const auto first = window(editor, m_first).element;
        const auto second = window(editor, m_second).element;
        port().apply(first, Point{40, 50}, Size{300, 200});
        port().apply(second, Point{900, 60}, {});
        port().apply(first, Point{710, 415}, Size{420, 330}); // the newer request holds
        const FrameReading secondAfter = port().readFrame(second);
        QVERIFY(secondAfter.position == (Point{900, 60}) && secondAfter.size == secondFrame.size());
        const WindowAttributes firstAfter = window(editor, m_first);
        QVERIFY(firstAfter.position == (Point{710, 415}) && firstAfter.size == (Size{420, 330}));
        close(m_first);
        port().apply(first, Point{1, 1}, Size{200, 200});
        port().raise({first});
        const FrameReading gone = port().readFrame(first);
        QVERIFY(!gone.position && !gone.size);
        QCOMPARE(titles(editor), QStringList{m_second});
    }

    void minimisedAndFullScreenWindowsAreTold()
    {
        m_rig.minimize(m_first);
        QCOMPARE(onScreen(), (OnScreen{{pidOf(mail), otherFrame}, {pidOf(editor), secondFrame}}));
        m_rig.makeFullScreen(m_second);
        QCOMPARE(window(editor, m_first).isMinimized, true);
        QCOMPARE(window(editor, m_first).isFullScreen.value_or(false), false);
        QCOMPARE(window(editor, m_second).isFullScreen, true);
    }

private:
    static constexpr Rect secondFrame{600, 200, 500, 350};
    static constexpr Rect otherFrame{300, 500, 450, 320};

    AccessibilityPort &port() { return m_rig.accessibility(); }

    QStringList titles(const QString &application)
    {
        QStringList titles;
        for (const WindowAttributes &window : port().windows(pidOf(application)))
            titles.append(window.title.value_or(QString()));
        return titles;
    }

    QString m_first;
    QString m_second;
    QString m_other;
};

} // namespace Panorel
