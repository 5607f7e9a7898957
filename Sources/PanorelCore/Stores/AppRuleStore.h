#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

/// The per-application rules, in rules.json, in the order first set.
class AppRuleStore {
public:
    AppRuleStore(AppLog &log, const Clock &clock);

    const std::vector<AppRule> &allRules() const { return m_rules; }

    /// Never absent: an application without a rule gets one with both flags off.
    AppRule rule(const QString &bundleID) const;

    /// Replaces the application's rule in its place, or appends it, and saves. A rule with both
    /// flags off stays.
    void set(const AppRule &rule);

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(std::vector<AppRule> contents);

private:
    JSONStore<std::vector<AppRule>> m_store;
    std::vector<AppRule> m_rules;
};

} // namespace Panorel
