#include "PanorelX11/Settings/IniUserDefaults.h"

#include "Fuzz/Fuzz.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QVariant>

#include <algorithm>
#include <cmath>

using namespace Panorel;
using Fuzz::require;

namespace {

const QStringList keys{QStringLiteral("enabled"), QStringLiteral("displaySettleSeconds"),
                       QStringLiteral("stashHotKey"), QStringLiteral("group/text")};

/// Of each key as every type, invalid where it is none.
QVariantList valuesIn(const UserDefaultsPort &defaults)
{
    const auto variant = [](const auto &value) { return value ? QVariant(*value) : QVariant(); };
    QVariantList values;
    for (const QString &key : keys) {
        const auto number = defaults.number(key);
        require(!number || std::isfinite(*number), "a number is finite");
        values << variant(defaults.boolean(key)) << variant(number) << variant(defaults.data(key))
               << variant(defaults.text(key));
    }
    return values;
}

/// New ones do not count: "true" is a text as well, once it was written anew.
bool areKept(const QVariantList &before, const QVariantList &after)
{
    return std::ranges::equal(before, after, [](const QVariant &old, const QVariant &now) {
        return !old.isValid() || old == now;
    });
}

void check(const QByteArray &input)
{
    // A name of its own each time: QSettings remembers files.
    static int runs = 0;
    TestDataDir dir;
    const QString name = QStringLiteral("%1.ini").arg(++runs);
    const QString added = QStringLiteral("added");
    dir.write(name, input);
    QVariantList before;
    {
        X11::IniUserDefaults defaults(dir.path(name), dir.log, dir.clock);
        before = valuesIn(defaults);
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
