#include "Contracts/AccessibilityContract.h"

#include <QTest>

namespace Panorel {

namespace {

const QString editor = QStringLiteral("editor");
const QString mail = QStringLiteral("mail");
const Rect firstFrame{100, 120, 400, 300};
const Rect secondFrame{600, 200, 500, 350};
const Rect otherFrame{300, 500, 450, 320};

} // namespace

void AccessibilityContract::init()
{
    m_first = m_rig.open(editor, firstFrame);
    m_second = m_rig.open(editor, secondFrame);
    m_other = m_rig.open(mail, otherFrame);
}

void AccessibilityContract::cleanup()
{
    for (const QString &title : {m_first, m_second, m_other})
        m_rig.close(title);
}

ProcessIdentifier AccessibilityContract::pidOf(const QString &application)
{
    for (const RunningApplication &running : m_rig.workspace().runningApplications()) {
        if (running.bundleID == m_rig.bundleID(application)
            && running.policy == ActivationPolicy::Regular)
            return running.pid;
    }
    return -1;
}

WindowAttributes AccessibilityContract::window(const QString &application, const QString &title)
{
    for (const WindowAttributes &window : m_rig.accessibility().windows(pidOf(application))) {
        if (window.title == title)
            return window;
    }
    qFatal("%s is not among the windows of %s", qPrintable(title), qPrintable(application));
}

QStringList AccessibilityContract::titles(const QString &application)
{
    QStringList titles;
    for (const WindowAttributes &window : m_rig.accessibility().windows(pidOf(application)))
        titles.append(window.title.value_or(QString()));
    return titles;
}

void AccessibilityContract::anApplicationsWindowsAreListedFrontToBack()
{
    QVERIFY(m_rig.accessibility().isTrusted());
    QCOMPARE(titles(editor), (QStringList{m_second, m_first}));
    QCOMPARE(titles(mail), QStringList{m_other});
    QVERIFY(pidOf(editor) != m_rig.workspace().ownProcessIdentifier());
}

void AccessibilityContract::aWindowIsMovedAndResizedToThePixel()
{
    const auto element = window(editor, m_first).element;
    m_rig.accessibility().apply(element, Point{710, 415}, Size{420, 330});
    const FrameReading after = m_rig.accessibility().readFrame(element);
    QVERIFY(after.position == (Point{710, 415}));
    QVERIFY(after.size == (Size{420, 330}));
    QVERIFY(window(editor, m_first).position == after.position);
}

void AccessibilityContract::aPositionAloneKeepsTheSize()
{
    const auto element = window(editor, m_second).element;
    m_rig.accessibility().apply(element, Point{33, 77}, {});
    const FrameReading after = m_rig.accessibility().readFrame(element);
    QVERIFY(after.position == (Point{33, 77}));
    QVERIFY(after.size == secondFrame.size());
}

void AccessibilityContract::manyMovesAreSentBeforeTheFirstIsReadBack()
{
    AccessibilityPort &port = m_rig.accessibility();
    const auto first = window(editor, m_first).element;
    const auto second = window(editor, m_second).element;
    port.apply(first, Point{40, 50}, Size{300, 200});
    port.apply(second, Point{900, 60}, {});
    port.apply(first, Point{60, 90}, {}); // the newer request holds
    QVERIFY(port.readFrame(second).position == (Point{900, 60}));
    QVERIFY(port.readFrame(first).position == (Point{60, 90}));
}

void AccessibilityContract::aWindowThatIsGoneReadsAsAbsent()
{
    const auto element = window(editor, m_first).element;
    m_rig.close(m_first);
    m_rig.accessibility().apply(element, Point{1, 1}, Size{200, 200});
    m_rig.accessibility().raise({element});
    const FrameReading after = m_rig.accessibility().readFrame(element);
    QVERIFY(!after.position && !after.size);
    QCOMPARE(titles(editor), QStringList{m_second});
}

void AccessibilityContract::minimisedAndFullScreenWindowsAreTold()
{
    m_rig.minimize(m_first);
    m_rig.makeFullScreen(m_second);
    QCOMPARE(window(editor, m_first).isMinimized, true);
    QCOMPARE(window(editor, m_first).isFullScreen.value_or(false), false);
    QCOMPARE(window(editor, m_second).isFullScreen, true);
    QCOMPARE(window(mail, m_other).isMinimized.value_or(false), false);
}

void AccessibilityContract::raisingEndsWithTheLastOnTopAndTheFocusWhereItWas()
{
    const QString focused = m_rig.focused();
    const auto first = window(editor, m_first).element;
    const auto second = window(editor, m_second).element;
    m_rig.accessibility().raise({second, first});
    QVERIFY(m_rig.waitUntil([&] { return titles(editor) == QStringList{m_first, m_second}; }));
    QCOMPARE(m_rig.focused(), focused);
}

void AccessibilityContract::theWindowListAgreesWithAccessibility()
{
    m_rig.minimize(m_first);
    const auto list = m_rig.windowList().onScreenWindows();
    QVERIFY(list.has_value());
    std::vector<std::pair<ProcessIdentifier, Rect>> ordinary;
    for (const WindowListEntry &entry : *list) {
        if (entry.layer == 0)
            ordinary.emplace_back(entry.ownerPID.value(), entry.bounds.value());
    }
    QCOMPARE(ordinary.size(), 2u);
    QCOMPARE(ordinary[0].first, pidOf(mail));
    QVERIFY(ordinary[0].second == otherFrame);
    QCOMPARE(ordinary[1].first, pidOf(editor));
    QVERIFY(ordinary[1].second == secondFrame);
}

void AccessibilityContract::anUnknownProcessHasNoWindows()
{
    QVERIFY(m_rig.accessibility().windows(987654).empty());
}

} // namespace Panorel
