#pragma once

#include "PanorelCore/Geometry.h"

#include <Qt>

#include <vector>

namespace Panorel {

class SceneStudioModel;

/// Upright lines at `x` and level ones at `y`, in global coordinates.
struct StudioLines {
    std::vector<double> x;
    std::vector<double> y;

    bool operator==(const StudioLines &) const = default;
};

/// One box being dragged: as a whole, or by some of its edges while the opposite ones stay.
/// Distances count from where the gesture began, so that a box that was held back by a limit or
/// by a line catches up with the pointer. A box that is removed meanwhile stays removed.
class StudioGesture {
public:
    /// No edges: all of it. The model must outlive the gesture.
    StudioGesture(SceneStudioModel &model, int id, Qt::Edges edges);

    /// To whole coordinates, or to a line of a display or another box that a dragged edge is no
    /// farther from than `reach`; 0: to no line.
    void dragTo(Size by, double reach);

    /// The lines that the last drag brought the box to.
    const StudioLines &guides() const { return m_guides; }
    Qt::Edges edges() const { return m_edges; }

private:
    void place(const Rect &target);
    StudioLines linesAround() const;
    void findGuides(const StudioLines &lines);

    SceneStudioModel &m_model;
    int m_id;
    Qt::Edges m_edges;
    Rect m_start;
    StudioLines m_guides;
};

} // namespace Panorel
