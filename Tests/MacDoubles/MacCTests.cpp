#include "Contracts/AccessibilityContract.h"
#include "Contracts/HotKeysContract.h"
#include "Contracts/InMemoryRig.h"
#include "Contracts/UserDefaultsContract.h"
#include "MacDoubles/CTests/MacServiceTests.h"
#include "MacDoubles/CTests/MacWindowTests.h"

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

class MacRig final : public InMemoryRig {
public:
    MacRig() : InMemoryRig(desktop().platform) {}

    AccessibilityPort &accessibility() override { return m_accessibility; }
    WindowListPort &windowList() override { return m_windowList; }

private:
    Mac::MacAccessibility m_accessibility{InMemoryDesktop::ownPID};
    Mac::MacWindowList m_windowList;
};

class MacKeyboard final : public InMemoryKeyboard {
public:
    MacKeyboard() : InMemoryKeyboard(desktop().platform.keys) {}

    HotKeyPort &hotKeys() override { return m_hotKeys; }

private:
    Mac::MacHotKeys m_hotKeys;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    MacWindowTests windows;
    MacServiceTests services;
    return runOnTheMac<AccessibilityContract, MacRig>()
           + runOnTheMac<HotKeysContract, MacKeyboard>()
           + runOnTheMac<UserDefaultsContract, Mac::MacUserDefaults>() + QTest::qExec(&windows)
           + QTest::qExec(&services);
}
