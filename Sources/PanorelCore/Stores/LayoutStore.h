#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

/// The learned arrangement of every desk, in layouts.json. Desks stand in the order first
/// learned. Should a hand-edited file hold a desk twice, the first one counts.
class LayoutStore {
public:
    LayoutStore(AppLog &log, const Clock &clock);

    const std::vector<Layout> &allLayouts() const { return m_file.layouts; }

    /// Null for a desk that was never learned. Valid until the store changes.
    const Layout *layoutFor(const QString &configID) const;

    /// The user's name for the desk; "Desk setup" for one that was never learned.
    QString deskName(const QString &configID) const;

    /// Replaces the desk's layout whole but for its name, which belongs to the user; a new desk
    /// goes to the end. Saves and logs.
    void saveLearned(Layout layout);

    /// Any text is taken, an empty one too. An unknown desk changes nothing.
    void renameDesk(const QString &configID, const QString &name);

    void forgetDesk(const QString &configID);

    /// The whole file.
    const LayoutFile &contents() const { return m_file; }

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(LayoutFile contents);

private:
    Layout *find(const QString &configID);

    AppLog &m_log;
    JSONStore<LayoutFile> m_store;
    LayoutFile m_file;
};

} // namespace Panorel
