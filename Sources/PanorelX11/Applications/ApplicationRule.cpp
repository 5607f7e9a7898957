#include "PanorelX11/Applications/ApplicationRule.h"

#include <QRegularExpression>

#include <algorithm>

namespace Panorel::X11 {

namespace {

using Entries = std::vector<DesktopEntry>;

QString text(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.left(256));
}

bool sameInAnyCase(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

template <typename Condition>
const DesktopEntry *firstWhere(const Entries &installed, const Condition &condition)
{
    const auto found = std::ranges::find_if(installed, condition);
    return found == installed.end() ? nullptr : &*found;
}

const DesktopEntry *withID(const Entries &installed, const QString &id)
{
    return firstWhere(installed, [&](const DesktopEntry &entry) { return entry.id == id; });
}

/// Undoes the escaping of a systemd unit's name: "\x2d" is "-".
QString unescaped(const QByteArray &part)
{
    QByteArray result;
    for (qsizetype i = 0; i < part.size(); ++i) {
        bool isNumber = false;
        const char byte = char(part.mid(i + 2, 2).toUInt(&isNumber, 16));
        if (isNumber && part.mid(i, 2) == "\\x" && part.size() >= i + 4) {
            result += byte;
            i += 3;
        } else {
            result += part[i];
        }
    }
    return QString::fromUtf8(result);
}

/// The unit is "app-[LAUNCHER-]ID[-RANDOM].scope" or "app-[LAUNCHER-]ID[@RANDOM].service".
const DesktopEntry *namedByUnit(const Entries &installed, QByteArray unit)
{
    if (!unit.startsWith("app-"))
        return nullptr;
    unit = unit.mid(4, unit.lastIndexOf('.') - 4);
    if (const qsizetype at = unit.indexOf('@'); at >= 0)
        unit.truncate(at);
    const QByteArrayList parts = unit.split('-');
    for (auto part = parts.crbegin(); part != parts.crend(); ++part) {
        if (const DesktopEntry *entry = withID(installed, unescaped(*part)))
            return entry;
    }
    return nullptr;
}

const DesktopEntry *byControlGroup(const Entries &installed, const ProcessFacts &process)
{
    for (const QByteArray &line : process.cgroup.split('\n')) {
        const DesktopEntry *entry =
            namedByUnit(installed, line.mid(line.lastIndexOf('/') + 1).trimmed());
        // What is typed in a terminal stays in the terminal's group: that names no application.
        if (entry && !entry->isTerminalEmulator)
            return entry;
    }
    return nullptr;
}

const DesktopEntry *byLauncher(const Entries &installed, const ProcessFacts &process)
{
    // A child inherits the variables of the program that was launched.
    const QString &path = process.launchedDesktopFile;
    if (process.launched != process.pid || path.isEmpty())
        return nullptr;
    const auto *entry =
        firstWhere(installed, [&](const DesktopEntry &other) { return other.path == path; });
    if (entry)
        return entry;
    const QString fileName = path.section(QLatin1Char('/'), -1);
    return firstWhere(installed, [&](const DesktopEntry &other) {
        return other.id + QLatin1String(".desktop") == fileName;
    });
}

const DesktopEntry *byStartupClass(const Entries &installed, const QString &instance,
                                   const QString &wmClass)
{
    const auto having = [&](const QString &name, Qt::CaseSensitivity sensitivity) {
        return firstWhere(installed, [&](const DesktopEntry &entry) {
            return !name.isEmpty() && entry.startupWMClass.compare(name, sensitivity) == 0;
        });
    };
    if (const auto *entry = having(instance, Qt::CaseSensitive))
        return entry;
    if (const auto *entry = having(wmClass, Qt::CaseSensitive))
        return entry;
    return having(wmClass, Qt::CaseInsensitive);
}

const DesktopEntry *byID(const Entries &installed, const QString &instance, const QString &wmClass)
{
    const auto named = [&](const QString &name, bool lastPart) {
        return firstWhere(installed, [&](const DesktopEntry &entry) {
            const QString id = lastPart ? entry.id.section(QLatin1Char('.'), -1) : entry.id;
            return !name.isEmpty() && sameInAnyCase(id, name);
        });
    };
    for (const bool lastPart : {false, true}) {
        if (const auto *entry = named(instance, lastPart))
            return entry;
        if (const auto *entry = named(wmClass, lastPart))
            return entry;
    }
    return nullptr;
}

const DesktopEntry *byProgram(const Entries &installed, const ProcessFacts &process)
{
    for (const QString &program : {process.executable, process.argument0}) {
        const auto starts = [&](const DesktopEntry &entry) {
            return !program.isEmpty() && entry.executable == program;
        };
        if (std::ranges::count_if(installed, starts) == 1)
            return firstWhere(installed, starts);
    }
    return nullptr;
}

const DesktopEntry *byProcess(const Entries &installed, const ProcessFacts &process)
{
    // The launcher speaks of this very process. A group is inherited: what an application starts,
    // for a scene of this program for example, is in its group too.
    const auto *entry = byLauncher(installed, process);
    return entry ? entry : byControlGroup(installed, process);
}

} // namespace

const DesktopEntry *resolveApplication(const Entries &installed, const ApplicationFacts &facts,
                                       const ProcessFacts *process)
{
    if (const auto *entry = withID(installed, text(facts.gtkApplicationID)))
        return entry;
    const QString instance = text(facts.wmClassInstance);
    const QString wmClass = text(facts.wmClassClass);
    const auto *startedAs = process ? byProcess(installed, *process) : nullptr;
    const auto *shownAs = byStartupClass(installed, instance, wmClass);
    if (!shownAs)
        shownAs = byID(installed, instance, wmClass);
    if (startedAs && (!shownAs || shownAs->isTerminalEmulator))
        return startedAs;
    if (shownAs)
        return shownAs;
    return process ? byProgram(installed, *process) : nullptr;
}

ApplicationIdentity unclaimedIdentity(const ApplicationFacts &facts)
{
    QString wmClass = text(facts.wmClassClass);
    if (wmClass.isEmpty())
        wmClass = text(facts.wmClassInstance);
    if (wmClass.isEmpty())
        wmClass = QStringLiteral("unknown");
    // "org.example.Viewer" reads better as "Viewer", while "gimp-2.10" is no such name.
    static const QRegularExpression reverseDomain(
        QStringLiteral(R"(\A[A-Za-z][\w-]*(\.[A-Za-z_][\w-]*){2,}\z)"));
    QString name = wmClass;
    if (reverseDomain.match(name).hasMatch())
        name = name.section(QLatin1Char('.'), -1);
    name[0] = name[0].toUpper();
    return {QStringLiteral("wmclass:") + wmClass, name};
}

} // namespace Panorel::X11
