#include "Panorel/AppController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/QtScheduler.h"
#include "Panorel/TerminationSignals.h"
#include "PanorelCore/Files/AppLog.h"

#include <QCoreApplication>

#include <cstdio>
#include <functional>
#include <stdexcept>

using namespace Panorel;

namespace {

int run(QCoreApplication &application, Platform &platform)
{
    // In force before the first learning, which may be writing when the session ends.
    std::function<void()> prepareToEnd = [] {};
    const TerminationSignals signals([&] {
        prepareToEnd();
        application.quit();
    });

    const SystemClock clock;
    AppLog &log = AppLog::shared();
    QtScheduler scheduler;
    Prefs prefs(platform.userDefaults(), platform.activationPolicy(), platform.loginItem());
    DisplayWatcher watcher(platform.screens(), scheduler, log);
    HotKeyCenter hotKeys(platform.hotKeys());
    PanelModel panelModel;
    AppController controller(panelModel,
                             {platform, watcher, hotKeys, prefs, scheduler, log, clock});
    prepareToEnd = [&] { controller.prepareToEnd(); };

    platform.setLostCallback([&](const QString &reason) {
        prepareToEnd();
        std::fprintf(stderr, "panorel: %s\n", qPrintable(reason));
        application.exit(1);
    });
    return application.exec();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("panorel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PANOREL_VERSION));
    try {
        const auto platform = makePlatform();
        return run(application, *platform);
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "panorel: %s\n", error.what());
        return 1;
    }
}
