#pragma once

#include "MacDoubles/C/CfObjects.h"
#include "PanorelMac/HotKeys/MacHotKeys.h"
#include "PanorelMac/Windows/MacAccessibility.h"

#include <Carbon/Carbon.h>
#include <QProcess>
#include <QTest>

#include <map>
#include <thread>

namespace Panorel::MacDoubles {

inline CFStringRef newString()
{
    const UniChar letter = 'x';
    return CFStringCreateWithCharacters(kCFAllocatorDefault, &letter, 1);
}

/// What must stop the program at once, by what it is to say, run in a process of its own.
inline const std::map<QString, std::function<void()>> &deadlyFaults()
{
    static const std::map<QString, std::function<void()>> all{
        {QStringLiteral("null or foreign"), [] { CFRelease(nullptr); }},
        {QStringLiteral("dead object was given: CF type 22"), // borrowed for too long
         [] {
             const auto list = static_cast<CFArrayRef>(toCf(QVariantList{1}));
             const CFTypeRef member = CFArrayGetValueAtIndex(list, 0);
             CFRelease(list);
             CFGetTypeID(member);
         }},
        {QStringLiteral("wrong type"), [] { CFArrayGetCount(CFArrayRef(newString())); }},
    };
    return all;
}

/// The doubles are as good as the faults they catch.
class SownFaultTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { resetDesktop(); }

    void misuseOfAnObjectStopsTheProgram()
    {
        for (const auto &[fault, commit] : deadlyFaults()) {
            QProcess process;
            process.start(QCoreApplication::applicationFilePath(),
                          {QStringLiteral("--sow"), fault});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            QVERIFY2(process.readAllStandardError().contains(fault.toUtf8()), qPrintable(fault));
        }
    }

    void whatIsLeftBehindIsNamed()
    {
        newString();
        EventHotKeyRef hotKey = nullptr;
        RegisterEventHotKey(1, cmdKey, {0x504E524C, 1}, GetEventDispatcherTarget(), 0, &hotKey);
        CFPreferencesSetAppValue(CFSTR("enabled"), kCFBooleanTrue,
                                 kCFPreferencesCurrentApplication);
        QCOMPARE(takeRemains(),
                 (QStringList{QStringLiteral("hot key ⌘S"), QStringLiteral("enabled"),
                              QStringLiteral("CF type 7 QVariant(QString, \"x\"), 0 members")}));
        QCOMPARE(takeRemains(), QStringList());
    }

    void faultsAgainstTheRulesAreRecorded()
    {
        auto &windows = desktop().platform.desktop;
        const auto pid = windows.launch(QStringLiteral("org.example.editor"), {});
        {
            Mac::MacAccessibility port(0);
            port.windows(InMemoryDesktop::ownPID);
            QCOMPARE(takeFaults().size(), 1);
            std::thread([&] { port.windows(pid); }).join();
            QCOMPARE(takeFaults().size(), 1);
            desktop().manners.hung = {pid};
            desktop().manners.timeOut = 0;
            port.windows(pid);
            QCOMPARE(takeFaults().size(), 1);
        }
        CGWindowListCopyWindowInfo(kCGWindowListOptionOnScreenOnly, kCGNullWindowID);
        QCOMPARE(takeFaults().size(), 1);
        takeRemains();
    }
};

} // namespace Panorel::MacDoubles
