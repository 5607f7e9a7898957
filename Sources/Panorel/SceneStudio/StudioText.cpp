#include "Panorel/SceneStudio/StudioText.h"

namespace Panorel {

namespace {

QString inPixels(double value)
{
    return QString::number(value, 'f', 0);
}

} // namespace

QString StudioText::nameOf(const WindowRecord &window)
{
    if (window.title.isEmpty())
        return window.appName.simplified();
    return tr("%1, %2").arg(window.appName.simplified(), window.title.simplified());
}

QString StudioText::placeOf(const Rect &frame)
{
    return tr("%1, %2 · %3 × %4")
        .arg(inPixels(frame.x), inPixels(frame.y), inPixels(frame.width), inPixels(frame.height));
}

QString StudioText::descriptionOf(const SceneStudioModel::Box &box)
{
    const QString name = nameOf(box.record);
    const QString place = placeOf(box.record.frame);
    return box.isGhost ? tr("%1 · %2 · not running").arg(name, place)
                       : tr("%1 · %2").arg(name, place);
}

} // namespace Panorel
