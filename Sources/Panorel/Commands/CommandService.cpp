#include "Panorel/Commands/CommandService.h"

#include "Panorel/AppController.h"
#include "Panorel/Commands/RestoreWords.h"
#include "Panorel/Commands/SceneChoice.h"
#include "Panorel/Commands/StateTransfer.h"
#include "Panorel/Commands/Verbs.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "PanorelCore/Files/Paths.h"

#include <QCoreApplication>
#include <QDir>

#include <map>

namespace Panorel {

namespace {

CommandReply failed(const char *what)
{
    return CommandReply::failure(ExitStatus::Failed, QString::fromUtf8(what));
}

/// Whether what came from outside has just what the verb takes.
bool isWellFormed(const Verb &verb, const CommandRequest &request)
{
    const std::size_t wanted = *verb.argument ? 1 : 0;
    if (request.arguments.size() != wanted || (request.dryRun && !verb.hasDryRun))
        return false;
    const bool isFile = QLatin1String(verb.argument) == QLatin1String("FILE");
    return !isFile || QDir::isAbsolutePath(request.arguments.front());
}

} // namespace

CommandService::CommandService(AppController &controller, const PanelModel &panel,
                               const AppServices &services, std::function<void()> stateReplaced)
    : m_controller(controller), m_panel(panel), m_services(services),
      m_stateReplaced(std::move(stateReplaced))
{}

CommandReply CommandService::run(const CommandRequest &request)
{
    using Service = CommandService;
    using Handler = std::function<CommandReply(Service &, const CommandRequest &)>;
    const auto listing = [](QJsonObject (StateReport::*list)() const) -> Handler {
        return [list](Service &service, const CommandRequest &) {
            return CommandReply::success((service.report().*list)());
        };
    };
    static const std::map<QString, Handler> handlers = {
        {QStringLiteral("restore"), &Service::restore},
        {QStringLiteral("undo"), &Service::undo},
        {QStringLiteral("save"), &Service::save},
        {QStringLiteral("stash"), &Service::stash},
        {QStringLiteral("apply"), &Service::apply},
        {QStringLiteral("status"), &Service::status},
        {QStringLiteral("export"), &Service::exportState},
        {QStringLiteral("import"), &Service::importState},
        {QStringLiteral("log"), &Service::log},
        {QStringLiteral("scenes"), listing(&StateReport::scenes)},
        {QStringLiteral("desks"), listing(&StateReport::desks)},
        {QStringLiteral("rules"), listing(&StateReport::rules)},
        {QStringLiteral("triggers"), listing(&StateReport::triggers)},
    };
    const Verb *verb = findVerb(request.verb);
    const auto handler = handlers.find(request.verb);
    if (!verb || handler == handlers.end() || !isWellFormed(*verb, request))
        return CommandReply::failure(ExitStatus::Usage, QStringLiteral("the running Panorel does "
                                                                       "not understand that"));
    return handler->second(*this, request);
}

QString CommandService::answer(const QString &line)
{
    try {
        return CommandCoding::line(run(CommandCoding::request(line)));
    } catch (const DecodingError &error) {
        return CommandCoding::line(CommandReply::failure(ExitStatus::Usage, error.description()));
    }
}

CommandReply CommandService::restore(const CommandRequest &request)
{
    constexpr char none[] = "no layout is saved yet for this desk";
    if (request.dryRun) {
        const auto plan = m_controller.planRestore();
        return plan ? CommandReply::success(RestoreWords::plan(*plan)) : failed(none);
    }
    const auto report = m_controller.restoreNow();
    return report ? CommandReply::success(RestoreWords::report(*report)) : failed(none);
}

CommandReply CommandService::undo(const CommandRequest &)
{
    const auto report = m_controller.undoLastRestore();
    return report ? CommandReply::success(RestoreWords::report(*report))
                  : failed("there is nothing to undo");
}

CommandReply CommandService::save(const CommandRequest &)
{
    const std::size_t count = m_controller.saveLayoutNow();
    if (count == 0)
        return failed("there are no windows to save");
    return CommandReply::success({{QStringLiteral("windows"), qint64(count)}});
}

CommandReply CommandService::stash(const CommandRequest &)
{
    m_controller.toggleStash();
    return CommandReply::success({{QStringLiteral("stashed"), m_controller.isStashed()}});
}

CommandReply CommandService::apply(const CommandRequest &request)
{
    const SceneChoice choice(m_controller.scenes().allScenes(), request.arguments.front(),
                             m_services.displayWatcher.configID());
    if (!choice.scene())
        return CommandReply::failure(ExitStatus::NotFound, choice.reason());
    const SceneRecord scene = *choice.scene(); // applying may change the list
    QJsonObject result = request.dryRun ? RestoreWords::plan(*m_controller.planScene(scene.id))
                                        : RestoreWords::report(*m_controller.applyScene(scene.id));
    result.insert(QStringLiteral("scene"), scene.name);
    result.insert(QStringLiteral("id"), scene.id.toString(QUuid::WithoutBraces).toUpper());
    return CommandReply::success(result);
}

CommandReply CommandService::status(const CommandRequest &)
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    const Prefs &prefs = m_services.prefs;
    return CommandReply::success({
        {QStringLiteral("running"), true},
        {QStringLiteral("version"), QCoreApplication::applicationVersion()},
        {QStringLiteral("process"), QCoreApplication::applicationPid()},
        {QStringLiteral("dataDirectory"), QDir(Paths::dataDir()).absolutePath()},
        {QStringLiteral("desk"), report().currentDesk(watcher.displays())},
        {QStringLiteral("enabled"), prefs.enabled()},
        {QStringLiteral("restoresAutomatically"), prefs.restoreAutomatically()},
        {QStringLiteral("canMoveWindows"), m_controller.permission().hasAccessibility()},
        {QStringLiteral("displaysAreSettling"), watcher.isSettling()},
        {QStringLiteral("stashed"), m_controller.isStashed()},
        {QStringLiteral("canUndo"), m_panel.canUndo()},
        {QStringLiteral("lastAction"), m_panel.lastAction()},
    });
}

CommandReply CommandService::exportState(const CommandRequest &request)
{
    const StateTransfer transfer(
        {.state = [this] { return m_controller.savedState(); }, .replace = {}}, m_services.clock);
    return transfer.exportTo(request.arguments.front());
}

CommandReply CommandService::importState(const CommandRequest &request)
{
    const auto replace = [this](const SavedState &state) {
        const bool saved = m_controller.replaceState(state);
        m_stateReplaced();
        return saved;
    };
    const StateTransfer transfer(
        {.state = [this] { return m_controller.savedState(); }, .replace = replace},
        m_services.clock);
    return transfer.importFrom(request.arguments.front(), request.dryRun);
}

/// Who asks reads it himself; it may be long.
CommandReply CommandService::log(const CommandRequest &)
{
    return CommandReply::success(
        {{QStringLiteral("file"), Paths::file(QStringLiteral("app.log"))}});
}

StateReport CommandService::report() const
{
    return {m_controller.stores(), m_services.displayWatcher.configID(),
            [this](const HotKeyCombo &combo) { return m_services.platform.hotKeys().text(combo); }};
}

} // namespace Panorel
