#include "PanorelX11/Applications/ApplicationRule.h"

#include "Fuzz/Fuzz.h"

using namespace Panorel;
using namespace Panorel::X11;
using Fuzz::require;

namespace {

/// An editor, a terminal, an office suite of two, and one whose keys are all there is.
const std::vector<DesktopEntry> &installed()
{
    const auto entry = [](const char *id, const char *wmClass, const char *program,
                          bool isTerminal = false) {
        const QString name = QString::fromLatin1(id), path = QStringLiteral("/usr/%1.desktop");
        return DesktopEntry{name,
                            name,
                            path.arg(name),
                            QString::fromLatin1(wmClass),
                            QString::fromLatin1(program),
                            isTerminal};
    };
    static const std::vector<DesktopEntry> entries{
        entry("org.example.Editor", "editor", "editor"), entry("office-calc", "office-calc", ""),
        entry("office-writer", "Office", "office"), entry("term", "Term", "term", true),
        entry("x", "", "x")};
    return entries;
}

/// One line for each fact, as they come from windows and processes; then the process's texts.
void check(const QByteArray &input)
{
    Fuzz::Input parts(input);
    X11::ApplicationFacts facts{parts.line(), parts.line(), parts.line(), 7};
    ProcessFacts process;
    process.pid = 7;
    process.executable = QString::fromUtf8(parts.line());
    process.argument0 = calledAs(parts.line().replace('|', '\0'));
    require(!process.argument0.contains(u'/'), "a program goes by its name alone");
    require(startTimeIn("7 (" + input.left(15) + ") S" + QByteArray(" 1").repeated(18) + " 42 5")
                == "42",
            "no name hides when a process started");
    QByteArray environment = parts.line();
    readLauncher(environment.replace('|', '\0'), process);
    process.cgroup = parts.rest();
    for (const ProcessFacts *asked :
         std::initializer_list<const ProcessFacts *>{nullptr, &process}) {
        const DesktopEntry *found = resolveApplication(installed(), facts, asked);
        require(!found || (found >= &installed().front() && found <= &installed().back()),
                "an application is one of the installed");
    }
    const ApplicationIdentity identity = unclaimedIdentity(facts);
    require(identity.id.startsWith(QLatin1String("wmclass:")) && !identity.name.isEmpty()
                && (identity.id + identity.name).isValidUtf16(),
            "every window has an identity that can be stored");
}

const Fuzz::Target target("ApplicationFacts", check);

} // namespace
