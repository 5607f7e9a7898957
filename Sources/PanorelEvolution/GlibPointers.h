#pragma once

#include <glib-object.h>
#include <memory>

namespace Panorel::Evolution {

/// Frees what GLib's and its friends' functions give away.
template <auto free> struct FreeWith {
    template <typename T> void operator()(T *pointer) const { free(pointer); }
};

template <typename T> using Owned = std::unique_ptr<T, FreeWith<&g_object_unref>>;

inline void freeObjects(GSList *list)
{
    g_slist_free_full(list, &g_object_unref);
}

inline void freeObjects(GList *list)
{
    g_list_free_full(list, &g_object_unref);
}

struct ListDeleter {
    template <typename T> void operator()(T *list) const { freeObjects(list); }
};
using OwnedSList = std::unique_ptr<GSList, ListDeleter>;
using OwnedList = std::unique_ptr<GList, ListDeleter>;
using OwnedText = std::unique_ptr<gchar, FreeWith<&g_free>>;

/// What a call says went wrong.
class Failure {
public:
    Failure() = default;
    ~Failure() { g_clear_error(&m_error); }
    Failure(const Failure &) = delete;
    Failure &operator=(const Failure &) = delete;

    /// For the call to fill in; what was there is forgotten.
    GError **out()
    {
        g_clear_error(&m_error);
        return &m_error;
    }
    const char *message() const { return m_error ? m_error->message : "no reason given"; }

private:
    GError *m_error = nullptr;
};

} // namespace Panorel::Evolution
