#include "PanorelX11/Settings/IniUserDefaults.h"

#include "Fuzz/Fuzz.h"
#include "Support/TestDataDir.h"

#include <QFile>

#include <algorithm>
#include <cmath>

using namespace Panorel;
using Fuzz::require;

namespace {

const QStringList keys{QStringLiteral("enabled"), QStringLiteral("displaySettleSeconds"),
                       QStringLiteral("stashHotKey"), QStringLiteral("group/text")};

struct Values {
    std::optional<bool> boolean;
    std::optional<double> number;
    std::optional<QByteArray> data;
    std::optional<QString> text;

    /// Others than `this` has do not count: "true" is a text as well, once it was written anew.
    bool areKeptIn(const Values &other) const
    {
        const auto kept = [](const auto &mine, const auto &theirs) {
            return !mine || mine == theirs;
        };
        return kept(boolean, other.boolean) && kept(number, other.number) && kept(data, other.data)
               && kept(text, other.text);
    }
};

std::vector<Values> valuesIn(const UserDefaultsPort &defaults)
{
    std::vector<Values> values;
    for (const QString &key : keys)
        values.push_back(
            {defaults.boolean(key), defaults.number(key), defaults.data(key), defaults.text(key)});
    return values;
}

bool areKept(const std::vector<Values> &before, const std::vector<Values> &after)
{
    return std::ranges::equal(before, after, &Values::areKeptIn);
}

void check(const QByteArray &input)
{
    // A name of its own each time: QSettings remembers files.
    static int runs = 0;
    TestDataDir dir;
    const QString name = QStringLiteral("%1.ini").arg(++runs);
    const QString added = QStringLiteral("added");
    dir.write(name, input);
    std::vector<Values> before;
    {
        X11::IniUserDefaults defaults(dir.path(name), dir.log, dir.clock);
        before = valuesIn(defaults);
        for (const Values &values : before)
            require(!values.number || std::isfinite(*values.number), "a number is finite");
        defaults.setText(added, QStringLiteral("\u00e4, [b]\n=%;"));
        if (!QFile::exists(dir.path(name + QStringLiteral(".corrupt-1715592000"))))
            require(areKept(before, valuesIn(defaults)), "a value does not change another");
    }
    const QByteArray aside = dir.read(name + QStringLiteral(".corrupt-1715592000"));
    require(aside.isEmpty() || aside == input, "what was refused is kept aside");
    // Nothing of the first object's cache.
    const QString copy = QStringLiteral("copy-") + name;
    dir.write(copy, dir.read(name));
    const X11::IniUserDefaults again(dir.path(copy), dir.log, dir.clock);
    require(again.text(added) == QStringLiteral("\u00e4, [b]\n=%;"), "what was set is there");
    require(areKept(before, valuesIn(again)), "what could be read is still there");
}

const Fuzz::Target target("UserDefaults", check);

} // namespace
