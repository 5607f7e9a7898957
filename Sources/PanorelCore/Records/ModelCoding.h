#pragma once

#include "PanorelCore/JSON/ValueCoding.h"
#include "PanorelCore/Records/Models.h"

/// The JSON keys of every record, required unless said otherwise.
namespace Panorel {

template <> struct Fields<DisplayInfo> {
    using R = DisplayInfo;
    static constexpr auto table =
        std::make_tuple(Field{"uuid", &R::uuid}, Field{"edidUUID", &R::edidUUID},
                        Field{"name", &R::name}, Field{"isBuiltin", &R::isBuiltin},
                        Field{"frame", &R::frame}, Field{"visibleFrame", &R::visibleFrame});
};

template <> struct Fields<WindowRecord> {
    using R = WindowRecord;
    static constexpr auto table =
        std::make_tuple(Field{"appName", &R::appName}, Field{"bundleID", &R::bundleID},
                        Field{"title", &R::title}, Field{"displayUUID", &R::displayUUID},
                        Field{"frame", &R::frame}, Field{"zOrder", &R::zOrder});
};

template <> struct Fields<Layout> {
    using R = Layout;
    static constexpr auto table =
        std::make_tuple(Field{"configID", &R::configID}, Field{"name", &R::name},
                        Field{"layoutName", &R::layoutName}, Field{"savedAt", &R::savedAt},
                        Field{"displays", &R::displays}, Field{"windows", &R::windows});
};

template <> struct Fields<LayoutFile> {
    using R = LayoutFile;
    static constexpr auto table =
        std::make_tuple(Field{"activeLayouts", &R::activeLayouts}, Field{"layouts", &R::layouts});
};

template <> struct Fields<HotKeyCombo> {
    using R = HotKeyCombo;
    static constexpr auto table =
        std::make_tuple(Field{"keyCode", &R::keyCode}, Field{"modifiers", &R::modifiers});
};

template <> struct Fields<SceneRecord> {
    using R = SceneRecord;
    // Files from before scenes could hide others lack hidesOtherApps; opensMissingApps was there
    // from the start.
    static constexpr auto table = std::make_tuple(
        Field{"id", &R::id}, Field{"configID", &R::configID}, Field{"name", &R::name},
        Field{"createdAt", &R::createdAt}, Field{"opensMissingApps", &R::opensMissingApps},
        Field{"hidesOtherApps", &R::hidesOtherApps, false},
        Field{"wallpaperPath", &R::wallpaperPath, false}, Field{"hotKey", &R::hotKey, false},
        Field{"layout", &R::layout});
};

template <> struct Fields<SceneFile> {
    using R = SceneFile;
    static constexpr auto table = std::make_tuple(
        Field{"lastAppliedByConfig", &R::lastAppliedByConfig}, Field{"scenes", &R::scenes});
};

template <> struct Fields<AppRule> {
    using R = AppRule;
    static constexpr auto table =
        std::make_tuple(Field{"bundleID", &R::bundleID}, Field{"ignored", &R::ignored},
                        Field{"restoreSize", &R::restoreSize});
};

template <> struct Fields<AppPlacement> {
    using R = AppPlacement;
    static constexpr auto table =
        std::make_tuple(Field{"configID", &R::configID}, Field{"bundleID", &R::bundleID},
                        Field{"windows", &R::windows});
};

template <> struct Fields<UsageData> {
    using R = UsageData;
    static constexpr auto table = std::make_tuple(
        Field{"deskIDs", &R::deskIDs}, Field{"firstRecordedAt", &R::firstRecordedAt},
        Field{"restores", &R::restores}, Field{"sceneSwitches", &R::sceneSwitches},
        Field{"stashUses", &R::stashUses}, Field{"undoUses", &R::undoUses},
        Field{"windowsPutBack", &R::windowsPutBack});
};

} // namespace Panorel
