#include "Panorel/SceneStudio/StudioGesture.h"

#include "Panorel/SceneStudio/SceneStudioModel.h"

#include <cmath>

namespace Panorel {

namespace {

/// One axis of a rectangle, and which of its ends are dragged.
struct Span {
    double low;
    double high;
    bool movesLow;
    bool movesHigh;

    /// How far it is to the nearest line, if any is within reach.
    std::optional<double> nearest(const std::vector<double> &lines, double reach) const
    {
        std::optional<double> best;
        double distance = reach;
        for (const double line : lines) {
            for (const auto &[end, moves] : {std::pair(low, movesLow), {high, movesHigh}}) {
                if (!moves || std::abs(line - end) > distance)
                    continue;
                best = line - end;
                distance = std::abs(*best);
            }
        }
        return best;
    }
    void shift(double by)
    {
        low += movesLow ? by : 0;
        high += movesHigh ? by : 0;
    }
    void drag(double by, const std::vector<double> &lines, double reach)
    {
        shift(by);
        const double end = movesLow ? low : high;
        const auto toLine = reach > 0 ? nearest(lines, reach) : std::nullopt;
        if (toLine)
            shift(*toLine);
        else if (by != 0)
            shift(std::round(end) - end);
    }
};

bool isNear(double one, double other)
{
    return std::abs(one - other) < 0.01;
}

} // namespace

StudioGesture::StudioGesture(SceneStudioModel &model, int id, Qt::Edges edges)
    : m_model(model), m_id(id), m_edges(edges)
{
    if (const SceneStudioModel::Box *box = model.box(id))
        m_start = box->record.frame;
}

void StudioGesture::dragTo(Size by, double reach)
{
    if (!m_model.box(m_id))
        return;
    const bool isWhole = !m_edges;
    Span across{m_start.minX(), m_start.maxX(), isWhole || m_edges & Qt::LeftEdge,
                isWhole || m_edges & Qt::RightEdge};
    Span down{m_start.minY(), m_start.maxY(), isWhole || m_edges & Qt::TopEdge,
              isWhole || m_edges & Qt::BottomEdge};
    const StudioLines lines = linesAround();
    across.drag(by.width, lines.x, reach);
    down.drag(by.height, lines.y, reach);
    place({across.low, down.low, across.high - across.low, down.high - down.low});
    m_guides = {};
    if (reach > 0)
        findGuides(lines);
}

/// The model resizes at the lower right corner and keeps to limits of its own. Other edges take a
/// move as well; what the limits change of it must not shift the edges that stay.
void StudioGesture::place(const Rect &target)
{
    const auto frame = [this] { return m_model.box(m_id)->record.frame; };
    const auto resizeTo = [&](double width, double height) {
        m_model.resize(m_id, {width - frame().width, height - frame().height});
    };
    const auto moveTo = [&](double x, double y) {
        m_model.move(m_id, {x - frame().x, y - frame().y});
    };
    if (!m_edges)
        return moveTo(target.x, target.y);
    resizeTo(target.width, target.height);
    const bool movesLeft = m_edges & Qt::LeftEdge;
    const bool movesTop = m_edges & Qt::TopEdge;
    if (!movesLeft && !movesTop)
        return;
    moveTo(movesLeft ? m_start.maxX() - frame().width : frame().x,
           movesTop ? m_start.maxY() - frame().height : frame().y);
    resizeTo(movesLeft ? m_start.maxX() - frame().x : frame().width,
             movesTop ? m_start.maxY() - frame().y : frame().height);
}

StudioLines StudioGesture::linesAround() const
{
    StudioLines lines;
    const auto add = [&lines](const Rect &frame) {
        lines.x.insert(lines.x.end(), {frame.minX(), frame.maxX()});
        lines.y.insert(lines.y.end(), {frame.minY(), frame.maxY()});
    };
    for (const DisplayInfo &display : m_model.displays()) {
        add(display.frame);
        if (display.visibleFrame.area() > 0) // where panels and docks end
            add(display.visibleFrame);
    }
    for (const SceneStudioModel::Box &box : m_model.boxes()) {
        if (box.id != m_id)
            add(box.record.frame);
    }
    return lines;
}

/// Of where the box is now: a limit may have kept it from where it snapped to.
void StudioGesture::findGuides(const StudioLines &lines)
{
    const Rect frame = m_model.box(m_id)->record.frame;
    const auto collect = [this](std::vector<double> &guides, const std::vector<double> &candidates,
                                double end, Qt::Edge edge) {
        const bool isDragged = !m_edges || m_edges & edge;
        const auto isAt = [end](double line) { return isNear(line, end); };
        if (isDragged && std::ranges::any_of(candidates, isAt))
            guides.push_back(end);
    };
    collect(m_guides.x, lines.x, frame.minX(), Qt::LeftEdge);
    collect(m_guides.x, lines.x, frame.maxX(), Qt::RightEdge);
    collect(m_guides.y, lines.y, frame.minY(), Qt::TopEdge);
    collect(m_guides.y, lines.y, frame.maxY(), Qt::BottomEdge);
}

} // namespace Panorel
