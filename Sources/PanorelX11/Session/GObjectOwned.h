#pragma once

#include <glib-object.h>

#include <memory>

namespace Panorel::X11 {

struct GObjectDeleter {
    void operator()(void *object) const { g_object_unref(object); }
};

/// A reference to a GObject that the holder gives up.
template <typename T> using GOwned = std::unique_ptr<T, GObjectDeleter>;

} // namespace Panorel::X11
