#include "Panorel/AppDelegate.h"
#include "Panorel/AppIcon.h"
#include "Panorel/Bus/SessionBus.h"
#include "Panorel/Commands/CommandClient.h"
#include "Panorel/Prefs.h"
#include "Panorel/QtScheduler.h"
#include "Panorel/SingleInstance.h"
#include "Panorel/TerminationSignals.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "PanorelCore/Files/AppLog.h"

#include <QApplication>

#include <cstdio>
#include <stdexcept>

using namespace Panorel;

namespace {

void nameProgram()
{
    QCoreApplication::setApplicationName(QStringLiteral("panorel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PANOREL_VERSION));
}

int run(QApplication &application, SingleInstance &instance, Platform &platform, AppLog &log,
        const Clock &clock)
{
    QtScheduler scheduler;
    Prefs prefs(platform.userDefaults(), platform.activationPolicy(), platform.loginItem());
    DisplayWatcher watcher(platform.screens(), scheduler, log);
    HotKeyCenter hotKeys(platform.hotKeys());
    AppDelegate delegate({platform, watcher, hotKeys, prefs, scheduler, log, clock});

    // In force before the first learning, which may be writing when the session ends.
    const TerminationSignals signals([&] {
        delegate.prepareToEnd();
        application.quit();
    });
    platform.setLostCallback([&](const QString &reason) {
        delegate.prepareToEnd();
        std::fprintf(stderr, "panorel: %s\n", qPrintable(reason));
        application.exit(1);
    });
    delegate.applicationDidFinishLaunching();
    instance.setActivatedCallback([&] { delegate.openPanel(); });
    instance.setRequestHandler(
        [&](const QString &line) { return delegate.commands().answer(line); });
    const auto service = SessionBus::offerService(
        {.run = [&](const CommandRequest &request) { return delegate.commands().run(request); },
         .openPanel = [&] { delegate.openPanel(); }});
    const int status = application.exec();
    instance.setRequestHandler({});
    instance.setActivatedCallback({});
    return status;
}

/// Absent where no command was given.
std::optional<int> runAsCommand(int &argc, char **argv)
{
    if (argc < 2)
        return {};
    const QCoreApplication application(argc, argv);
    nameProgram();
    return runCommandLine(QCoreApplication::arguments().mid(1));
}

} // namespace

int main(int argc, char **argv)
{
    try {
        if (const auto status = runAsCommand(argc, argv))
            return *status;
        preparePlatform();
        SessionBus::preventAutolaunch();
        QApplication application(argc, argv);
        nameProgram();
        QApplication::setDesktopFileName(QStringLiteral("org.panorel.Panorel"));
        QApplication::setWindowIcon(appIcon());
        QApplication::setQuitOnLastWindowClosed(false);
        installTranslations(application, QLocale::system().uiLanguages());
        const auto instance = SingleInstance::acquire();
        if (!instance)
            return 0; // the running one shows its panel
        const SystemClock clock;
        AppLog &log = AppLog::shared();
        log.log(QStringLiteral("started: Panorel %1, %2, %3")
                    .arg(QCoreApplication::applicationVersion(), QGuiApplication::platformName(),
                         QSysInfo::prettyProductName()));
        const auto platform = makePlatform(log, clock);
        return run(application, *instance, *platform, log, clock);
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "panorel: %s\n", error.what());
        return 1;
    }
}
