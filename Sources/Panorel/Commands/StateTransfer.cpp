#include "Panorel/Commands/StateTransfer.h"

#include "Panorel/Commands/StateReport.h"
#include "PanorelCore/Clock.h"
#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/State/StateExport.h"

#include <QDir>
#include <QFileInfo>

namespace Panorel {

namespace {

CommandReply failed(const QString &what)
{
    return CommandReply::failure(ExitStatus::Failed, what);
}

} // namespace

CommandReply StateTransfer::exportTo(const QString &path) const
{
    const SavedState state = m_owner.state();
    try {
        StateExport::write(path, state);
    } catch (const StateExport::Failure &failure) {
        return failed(QStringLiteral("“%1” can't be written: %2").arg(path, failure.reason()));
    }
    QJsonObject result = StateReport::counts(state);
    result.insert(QStringLiteral("file"), path);
    return CommandReply::success(result);
}

CommandReply StateTransfer::importFrom(const QString &path, bool dryRun) const
{
    SavedState state;
    try {
        state = StateExport::read(path);
    } catch (const StateExport::Failure &failure) {
        return failed(QStringLiteral("“%1” was not imported: %2").arg(path, failure.reason()));
    }
    QJsonObject result = StateReport::counts(state);
    result.insert(QStringLiteral("file"), path);
    result.insert(QStringLiteral("replaces"), StateReport::counts(m_owner.state()));
    if (dryRun)
        return CommandReply::success(result);

    const QString backup = newBackupPath();
    try {
        StateExport::write(backup, m_owner.state());
    } catch (const StateExport::Failure &failure) {
        return failed(QStringLiteral("nothing was imported, the backup “%1” can't be written: %2")
                          .arg(backup, failure.reason()));
    }
    result.insert(QStringLiteral("backup"), backup);
    if (m_owner.replace(state))
        return CommandReply::success(result);
    return {ExitStatus::Failed,
            QStringLiteral("imported, but not all of it could be saved, see panorel log; what was "
                           "there before is in “%1”")
                .arg(backup),
            result};
}

QString StateTransfer::newBackupPath() const
{
    const QDir directory(Paths::file(QStringLiteral("backups")));
    if (!directory.exists())
        QDir().mkdir(directory.path(),
                     QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QString moment = PanorelJSON::iso().string(m_clock.now());
    moment.remove(QLatin1Char('-')).remove(QLatin1Char(':'));
    QString name = QStringLiteral("before-import-%1.json").arg(moment);
    for (int number = 2; directory.exists(name); ++number)
        name = QStringLiteral("before-import-%1-%2.json").arg(moment).arg(number);
    return directory.absoluteFilePath(name);
}

} // namespace Panorel
