#pragma once

#include "MacDoubles/C/CfObjects.h"
#include "MacDoubles/MacTests.h"
#include "PanorelMac/Support/CfText.h"
#include "PanorelMac/Windows/MacAccessibility.h"
#include "PanorelMac/Windows/MacWindowList.h"

#include <QPointF>
#include <QSizeF>

namespace Panorel::MacDoubles {

/// Windows on a Mac that answers badly: with other types, late, or not at all.
class MacWindowTests : public MacTests {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        resetDesktop();
        m_editor = windows().add(QStringLiteral("org.example.editor"), QStringLiteral("Editor"));
        m_first = windows().open(m_editor, QStringLiteral("First"), {100, 120, 400, 300});
        m_second = windows().open(m_editor, QStringLiteral("Second"), secondFrame);
        m_port = std::make_unique<Mac::MacAccessibility>(InMemoryDesktop::ownPID);
    }

    void textIsMadeValidInBothDirections()
    {
        const char16_t high = 0xD83D, low = 0xDCC4;
        const std::pair<std::u16string, std::u16string> rows[] = {
            {{u'a', high, low}, {u'a', high, low}},
            {{u'a', 0, u'a'}, {u'a', 0, u'a'}},
            {{u'a', high}, {u'a', 0xFFFD}},
            {{low, high}, {0xFFFD, 0xFFFD}},
        };
        for (const auto &[given, valid] : rows) {
            const QString text = QString::fromStdU16String(given);
            const QString expected = QString::fromStdU16String(valid);
            QCOMPARE(textOf(Mac::toCfString(text).get()), expected);
            windows().window(m_first).title = text;
            QCOMPARE(attributes(m_first).title, expected);
        }
    }

    void anAttributeOfTheWrongKindIsAbsentAndAlone()
    {
        const AccessibilityManners::Answer answers[] = {
            {0, {}},
            {0, QVariant::fromValue(nullptr)},
            {0, QVariantList{1}},
            {kAXErrorCannotComplete, {}}, // slow once
        };
        for (const auto &answer : answers) {
            for (const char *name :
                 {"AXPosition", "AXSize", "AXTitle", "AXMinimized", "AXFullScreen"}) {
                manners().answers = {{{m_first, QLatin1String(name)}, answer}};
                const WindowAttributes read = attributes(m_first);
                QCOMPARE(read.position.has_value() + read.size.has_value() + read.title.has_value()
                             + read.isMinimized.has_value() + read.isFullScreen.has_value(),
                         4);
                const FrameReading frame = m_port->readFrame(read.element);
                QCOMPARE(frame.position.has_value(), read.position && read.size);
                QCOMPARE(frame.size.has_value(), read.position && read.size);
            }
            manners().answers = {{{0, QStringLiteral("AXWindows")}, answer},
                                 {{0, QStringLiteral("AXFocusedWindow")}, answer}};
            QVERIFY(m_port->windows(m_editor).empty());
            QVERIFY(!m_port->focusedWindow());
        }
    }

    void aSizeIsNoPositionNorTheOtherWayRound()
    {
        manners().answers = {{{m_first, QStringLiteral("AXPosition")}, {0, QSizeF(1, 2)}},
                             {{m_second, QStringLiteral("AXSize")}, {0, QPointF(1, 2)}}};
        QVERIFY(!attributes(m_first).position && attributes(m_first).size);
        QVERIFY(attributes(m_second).position && !attributes(m_second).size);
    }

    void thePositionIsSetFirstAndWhatIsAbsentIsNotTouched()
    {
        const auto first = attributes(m_first).element;
        m_port->apply(first, Point{-1000, 50}, Size{640, 480});
        m_port->apply(first, Point{1, 2}, {});
        m_port->apply(first, {}, Size{3, 4});
        m_port->apply(nullptr, Point{1, 2}, Size{3, 4});
        QCOMPARE(windows().journal.join(u' '),
                 QStringLiteral("position 1 size 1 position 1 size 1"));
        QVERIFY(windows().window(m_first).frame == (Rect{1, 2, 3, 4}));
    }

    void aHungApplicationCostsOneWaitAndIsListedWhenItIsWellAgain()
    {
        manners().hung = {m_editor};
        QVERIFY(m_port->windows(m_editor).empty());
        QCOMPARE(manners().waits, 1);
        QCOMPARE(manners().timeOut, 0.5f);
        manners().hung = {};
        QCOMPARE(m_port->windows(m_editor).size(), 2u);
    }

    void anApplicationMayHangOrQuitAtAnyQuestion()
    {
        for (int answered = 0; answered <= 24; ++answered) {
            for (const bool quits : {false, true}) {
                init();
                const auto first = attributes(m_first).element;
                int left = answered;
                manners().onQuestion = [&] {
                    if (left-- > 0)
                        return;
                    quits ? windows().quit(m_editor) : void(manners().hung = {m_editor});
                };
                m_port->windows(m_editor);
                QVERIFY(manners().waits <= 6);
                m_port->focus(m_port->focusedWindow());
                m_port->apply(first, Point{1, 2}, Size{3, 4});
                m_port->raise({first});
                const FrameReading frame = m_port->readFrame(first);
                QCOMPARE(frame.position && frame.size, left >= 0);
                manners().onQuestion = {};
            }
        }
    }

    void withoutTrustNothingIsReadAndThePromptIsAskedFor()
    {
        windows().trusted = false;
        QVERIFY(!m_port->isTrusted() && m_port->isTrustGranted());
        QVERIFY(m_port->windows(m_editor).empty() && !m_port->focusedWindow());
        m_port->promptForTrust();
        QCOMPARE(windows().prompts, 1);
    }

    void theOwnProcessIsNeverAsked()
    {
        windows().open(InMemoryDesktop::ownPID, QStringLiteral("Own"), secondFrame);
        manners().hung = {InMemoryDesktop::ownPID};
        QVERIFY(m_port->windows(InMemoryDesktop::ownPID).empty());
        QVERIFY(!m_port->focusedWindow());
        QCOMPARE(manners().waits, 0);
    }

    void theFocusGoesOnlyToAWindowThatCanHaveIt()
    {
        const auto second = m_port->focusedWindow();
        windows().focused = m_first;
        m_port->focus(second);
        QCOMPARE(windows().focused, m_second);

        const auto first = attributes(m_first).element;
        manners().mainWindow = 0;
        windows().window(m_first).isMinimized = true;
        m_port->focus(first);
        windows().window(m_first).isMinimized = false;
        manners().isBlank = true; // as for a window on another Space
        m_port->focus(first);
        manners().isBlank = false;
        windows().applications().back().isHidden = true;
        m_port->focus(first);
        m_port->focus(nullptr);
        QCOMPARE(manners().mainWindow, 0); // nor is the application activated

        windows().window(m_second).layer = -1; // the desktop of the file manager
        QVERIFY(!m_port->focusedWindow());
    }

    void anEntryOfTheWindowListSaysWhatIsSeen()
    {
        windows().window(m_first).layer = -2147483603;
        windows().window(m_first).alpha = 0.5;
        const auto list = Mac::MacWindowList().onScreenWindows().value();
        QVERIFY(list[0].layer == 0 && list[0].alpha == 1.0 && list[0].bounds == secondFrame);
        QVERIFY(list[1].layer == -2147483603 && list[1].alpha == 0.5);
        QVERIFY(list[1].ownerPID == m_editor);
        windows().listReadable = false;
        QVERIFY(!Mac::MacWindowList().onScreenWindows());
    }

private:
    static constexpr Rect secondFrame{600, 200, 500, 350};

    static InMemoryDesktop &windows() { return desktop().platform.desktop; }
    static AccessibilityManners &manners() { return desktop().manners; }

    /// The editor's windows are listed front to back.
    WindowAttributes attributes(int number)
    {
        return m_port->windows(m_editor).at(number == m_second ? 0 : 1);
    }

    ProcessIdentifier m_editor = 0;
    int m_first = 0;
    int m_second = 0;
    std::unique_ptr<Mac::MacAccessibility> m_port;
};

} // namespace Panorel::MacDoubles
