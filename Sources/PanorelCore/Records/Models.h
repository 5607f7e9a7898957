#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/Geometry.h"

#include <QString>
#include <QUuid>

#include <map>
#include <optional>
#include <vector>

/// The records that are passed around and stored: plain values, equal when every field is. Their
/// JSON form is in ModelCoding.h. Frames are in the global top-left space (Geometry.h).
namespace Panorel {

/// One connected display.
struct DisplayInfo {
    QString uuid;     ///< this display on this computer; windows refer to it
    QString edidUUID; ///< the model (and serial number) of the display; decides the desk
    QString name;     ///< what the user calls it
    bool isBuiltin = false;
    Rect frame;        ///< the whole area
    Rect visibleFrame; ///< the area that panels, docks and menu bars leave

    bool operator==(const DisplayInfo &) const = default;
};

/// One window as saved.
struct WindowRecord {
    QString appName;
    QString bundleID;    ///< the application; the key for rules and matching
    QString title;       ///< at capture time; may be empty
    QString displayUUID; ///< DisplayInfo::uuid; empty when there was no display
    Rect frame;
    qint64 zOrder = 0; ///< 0 is the frontmost; dense within one capture

    bool operator==(const WindowRecord &) const = default;
};

/// The arrangement of one desk.
struct Layout {
    QString configID;   ///< the desk (ConfigID)
    QString name;       ///< the desk's name, which the user can change
    QString layoutName; ///< the name of this arrangement within the desk
    Instant savedAt;
    std::vector<DisplayInfo> displays;
    std::vector<WindowRecord> windows;

    bool operator==(const Layout &) const = default;
};

/// The body of layouts.json.
struct LayoutFile {
    /// configID to layoutName. Nothing reads it; it is carried through every load and save.
    std::map<QString, QString> activeLayouts;
    std::vector<Layout> layouts;

    bool operator==(const LayoutFile &) const = default;
};

/// A global key combination: a macOS virtual key code and Carbon modifier flags, also on X11,
/// where both name key positions.
struct HotKeyCombo {
    static constexpr quint32 command = 0x100; ///< Super on a PC keyboard
    static constexpr quint32 shift = 0x200;
    static constexpr quint32 option = 0x800; ///< Alt
    static constexpr quint32 control = 0x1000;

    quint32 keyCode = 0;
    quint32 modifiers = 0;

    /// In a Mac's glyphs, for example "⌥⇧S"; "?" for a key without a name.
    QString displayString() const;
    /// As on a PC keyboard, for example "Alt+Shift+S"; more keys have a name there.
    QString pcString() const;

    bool operator==(const HotKeyCombo &) const = default;
};

/// A named arrangement that the user saved and can switch to.
struct SceneRecord {
    QUuid id;
    QString configID; ///< the desk it belongs to
    QString name;
    Instant createdAt;
    bool opensMissingApps = false;
    bool hidesOtherApps = false;
    std::optional<QString> wallpaperPath; ///< absent: leave the desktop picture alone
    std::optional<HotKeyCombo> hotKey;    ///< absent: no key of its own
    Layout layout;

    bool operator==(const SceneRecord &) const = default;
};

/// The body of scenes.json.
struct SceneFile {
    std::map<QString, QString> lastAppliedByConfig; ///< configID to the scene's UUID as text
    std::vector<SceneRecord> scenes;

    bool operator==(const SceneFile &) const = default;
};

/// What the user asked for one application.
struct AppRule {
    QString bundleID;
    bool ignored = false;     ///< its windows are left alone
    bool restoreSize = false; ///< sizes too, even where the preference is off

    bool operator==(const AppRule &) const = default;
};

/// Where one application's windows were on one desk when it last ran there. placements.json holds
/// a list of these.
struct AppPlacement {
    QString configID;
    QString bundleID;
    std::vector<WindowRecord> windows; ///< all of that application

    bool operator==(const AppPlacement &) const = default;
};

/// The body of usage.json: running totals, shown to the user.
struct UsageData {
    std::vector<QString> deskIDs; ///< in the order first seen
    Instant firstRecordedAt;
    qint64 restores = 0;
    qint64 sceneSwitches = 0;
    qint64 stashUses = 0;
    qint64 undoUses = 0;
    qint64 windowsPutBack = 0;

    bool operator==(const UsageData &) const = default;
};

} // namespace Panorel
