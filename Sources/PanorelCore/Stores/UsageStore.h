#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <variant>

namespace Panorel {

/// Something worth counting.
namespace UsageEvents {
struct Restore {
    qint64 windows = 0; ///< how many were put back
};
struct Desk {
    QString configID;
};
struct SceneSwitch {};
struct Stash {};
struct Undo {};
} // namespace UsageEvents

using UsageEvent = std::variant<UsageEvents::Restore, UsageEvents::Desk, UsageEvents::SceneSwitch,
                                UsageEvents::Stash, UsageEvents::Undo>;

/// Running totals, in usage.json. They are never reset; counting starts anew where the file is
/// missing or can't be read.
class UsageStore {
public:
    UsageStore(AppLog &log, const Clock &clock);

    const UsageData &data() const { return m_data; }

    /// Counts and saves. A desk that is known already changes nothing. A counter that would
    /// overflow ends the process: a total that lies is worse.
    void record(const UsageEvent &event);

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(UsageData contents);

private:
    bool count(const UsageEvents::Restore &restore);
    bool count(const UsageEvents::Desk &desk);
    bool count(const UsageEvents::SceneSwitch &);
    bool count(const UsageEvents::Stash &);
    bool count(const UsageEvents::Undo &);

    JSONStore<UsageData> m_store;
    UsageData m_data;
};

} // namespace Panorel
