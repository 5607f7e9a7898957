#include "Contracts/AccessibilityContract.h"
#include "Contracts/HotKeysContract.h"
#include "Contracts/InMemoryRig.h"
#include "Contracts/ScreensContract.h"
#include "Contracts/UserDefaultsContract.h"
#include "Contracts/WorkspaceContract.h"

#include <QTest>

using namespace Panorel;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    InMemoryPlatform platform;
    InMemoryRig rig(platform);
    AccessibilityContract windows(rig);
    WorkspaceContract workspace(rig);
    ScreensContract screens(rig);
    UserDefaultsContract defaults(platform.defaults);
    InMemoryKeyboard keyboard(platform.keys);
    HotKeysContract hotKeys(keyboard);
    return QTest::qExec(&windows) + QTest::qExec(&workspace) + QTest::qExec(&screens)
           + QTest::qExec(&defaults) + QTest::qExec(&hotKeys);
}
