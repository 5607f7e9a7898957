#pragma once

#include "PanorelCore/Records/Models.h"

namespace Panorel {

/// A display of which nothing is taken where no visible frame is given.
inline DisplayInfo display(const char *name, const Rect &frame,
                           const std::optional<Rect> &visible = {}, bool isBuiltin = false)
{
    const QString text = QString::fromUtf8(name);
    return {text, text, text, isBuiltin, frame, visible.value_or(frame)};
}

inline WindowRecord window(const char *application, const char *title, const Rect &frame)
{
    const QString name = QString::fromUtf8(application);
    return {name, name.toLower(), QString::fromUtf8(title), {}, frame};
}

/// The same name makes the same scene.
inline SceneRecord scene(const char *name, const std::optional<HotKeyCombo> &key = {})
{
    SceneRecord record;
    record.name = QString::fromUtf8(name);
    record.id = QUuid::createUuidV5(QUuid(), record.name);
    record.hotKey = key;
    return record;
}

} // namespace Panorel
