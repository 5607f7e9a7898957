#pragma once

/// Distances of every view, in device-independent pixels on a grid of 4.
namespace Panorel::Metrics {

constexpr int tight = 4;
constexpr int small = 8;
constexpr int medium = 12;
constexpr int large = 16;
constexpr int wide = 24;

constexpr int panelRadius = 10;
constexpr int cardRadius = 8;
constexpr int controlRadius = 6;

constexpr int rowHeight = 32; ///< at least; a larger font makes it higher
constexpr int hitArea = 28;   ///< nothing to press is smaller
constexpr int symbolSize = 20;
constexpr int contentWidth = 640; ///< at most, of a page
constexpr int focusRing = 2;

} // namespace Panorel::Metrics
