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

private:
    JSONStore<std::vector<AppRule>> m_store;
    std::vector<AppRule> m_rules;
};

} // namespace Panorel
