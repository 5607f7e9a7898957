#pragma once

#include "PanorelCore/Records/Models.h"

#include <array>

namespace Panorel {

class Prefs;

/// An action that can have a global key of the user's choice and is always there, unlike a scene.
enum class FixedAction { Stash, Restore, SaveLayout, Undo };

inline constexpr std::array fixedActions{FixedAction::Stash, FixedAction::Restore,
                                         FixedAction::SaveLayout, FixedAction::Undo};

/// Under which its key is registered.
QString keyID(FixedAction action);

/// As it is named where keys are listed, in the user's language.
QString nameOf(FixedAction action);
/// The same for the log, which is English.
QString logNameOf(FixedAction action);

/// The preference that holds its key; absent: none.
std::optional<HotKeyCombo> keyOf(FixedAction action, const Prefs &prefs);
void setKeyOf(FixedAction action, const std::optional<HotKeyCombo> &combo, Prefs &prefs);

/// Under which a scene's key is registered, and how all such ids begin.
inline const QString sceneKeyPrefix = QStringLiteral("scene:");
QString keyID(const SceneRecord &scene);

} // namespace Panorel
