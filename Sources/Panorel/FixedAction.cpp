#include "Panorel/FixedAction.h"

#include "Panorel/Prefs.h"

#include <QCoreApplication>

namespace Panorel {

namespace {

struct Entry {
    const char *id;
    const char *name;
    const std::optional<HotKeyCombo> &(Prefs::*key)() const;
    void (Prefs::*setKey)(const std::optional<HotKeyCombo> &);
};

const Entry &entry(FixedAction action)
{
    static constexpr Entry entries[] = {
        {"stash", QT_TRANSLATE_NOOP("Panorel::FixedAction", "Stash"), &Prefs::stashHotKey,
         &Prefs::setStashHotKey},
        {"restore", QT_TRANSLATE_NOOP("Panorel::FixedAction", "Restore now"), &Prefs::restoreHotKey,
         &Prefs::setRestoreHotKey},
        {"savelayout", QT_TRANSLATE_NOOP("Panorel::FixedAction", "Save layout now"),
         &Prefs::saveLayoutHotKey, &Prefs::setSaveLayoutHotKey},
        {"undo", QT_TRANSLATE_NOOP("Panorel::FixedAction", "Undo last restore"), &Prefs::undoHotKey,
         &Prefs::setUndoHotKey},
    };
    return entries[std::size_t(action)];
}

} // namespace

QString keyID(FixedAction action)
{
    return QLatin1String(entry(action).id);
}

QString nameOf(FixedAction action)
{
    return QCoreApplication::translate("Panorel::FixedAction", entry(action).name);
}

QString logNameOf(FixedAction action)
{
    return QLatin1String(entry(action).name);
}

std::optional<HotKeyCombo> keyOf(FixedAction action, const Prefs &prefs)
{
    return (prefs.*entry(action).key)();
}

void setKeyOf(FixedAction action, const std::optional<HotKeyCombo> &combo, Prefs &prefs)
{
    (prefs.*entry(action).setKey)(combo);
}

QString keyID(const SceneRecord &scene)
{
    return sceneKeyPrefix + scene.id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace Panorel
