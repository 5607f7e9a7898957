#include "Panorel/Commands/OfflineCommands.h"

#include "Panorel/Commands/StateReport.h"
#include "Panorel/Commands/StateTransfer.h"
#include "Panorel/Prefs.h"
#include "Panorel/ProgramStores.h"
#include "Panorel/SingleInstance.h"
#include "PanorelCore/Files/AppLog.h"
#include "PanorelPorts/Platform.h"

namespace Panorel {

namespace {

/// Nobody sees a program that doesn't run.
class NoActivationPolicy final : public ActivationPolicyPort {
public:
    bool hasDock() const override { return false; }
    void setActivationPolicy(ActivationPolicy) override {}
};

CommandReply transfer(const CommandRequest &request, ProgramStores &stores, AppLog &log,
                      const Clock &clock)
{
    const auto defaults = makeUserDefaults(log, clock);
    const auto loginItem = makeLoginItem();
    NoActivationPolicy policy;
    Prefs prefs(*defaults, policy, *loginItem);
    const StateTransfer transfer(
        {.state = [&] { return stores.state(prefs); },
         .replace = [&](const SavedState &state) { return stores.replace(state, prefs); }},
        clock);
    const QString &path = request.arguments.front();
    return request.verb == QLatin1String("export") ? transfer.exportTo(path)
                                                   : transfer.importFrom(path, request.dryRun);
}

} // namespace

CommandReply runOffline(const CommandRequest &request)
{
    const SystemClock clock;
    AppLog &log = AppLog::shared();
    const bool isImport = request.verb == QLatin1String("import");
    const auto instance = isImport ? SingleInstance::acquire() : nullptr;
    if (isImport && !instance)
        return CommandReply::failure(ExitStatus::Failed,
                                     QStringLiteral("Panorel has just been started, try again"));
    ProgramStores stores(log, clock);
    if (isImport || request.verb == QLatin1String("export"))
        return transfer(request, stores, log, clock);
    const StateReport report(stores, {}, [](const HotKeyCombo &combo) { return combo.pcString(); });
    if (request.verb == QLatin1String("scenes"))
        return CommandReply::success(report.scenes());
    if (request.verb == QLatin1String("desks"))
        return CommandReply::success(report.desks());
    if (request.verb == QLatin1String("rules"))
        return CommandReply::success(report.rules());
    if (request.verb == QLatin1String("triggers"))
        return CommandReply::success(report.triggers());
    return {ExitStatus::NotRunning,
            QStringLiteral("Panorel is not running"),
            {{QStringLiteral("running"), false}}};
}

} // namespace Panorel
