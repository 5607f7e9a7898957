#pragma once

#include "PanorelCore/Matching/WindowMatcher.h"
#include "PanorelCore/Triggers/TriggerRecord.h"

namespace Panorel::Samples {

/// Every application has this many windows, so that the applications grow with the windows.
inline constexpr int windowsEach = 10;

QString applicationID(int number);

/// Windows of all sizes on two displays, ten to an application, with titles of everyday length.
std::vector<WindowRecord> windows(int count);
std::vector<LiveWindow> live(const std::vector<WindowRecord> &records);

std::vector<DisplayInfo> displays();
Layout layout(const QString &configID, int windows);
/// As many desks, with a few windows each.
LayoutFile desks(int count);
QString deskID(int number);

/// Scenes of a few windows each, spread over five desks.
SceneFile scenes(int count);
/// Half by the clock, half before meetings.
std::vector<TriggerRecord> triggers(int count);

} // namespace Panorel::Samples
