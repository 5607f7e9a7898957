#include "PanorelCore/Stores/AppRuleStore.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

AppRuleStore::AppRuleStore(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("rules.json")), log, clock),
      m_rules(m_store.load().value_or(std::vector<AppRule>{}))
{}

AppRule AppRuleStore::rule(const QString &bundleID) const
{
    const auto found = std::ranges::find(m_rules, bundleID, &AppRule::bundleID);
    return found == m_rules.end() ? AppRule{bundleID, false, false} : *found;
}

void AppRuleStore::set(const AppRule &rule)
{
    const auto found = std::ranges::find(m_rules, rule.bundleID, &AppRule::bundleID);
    if (found == m_rules.end())
        m_rules.push_back(rule);
    else
        *found = rule;
    m_store.save(m_rules);
}

bool AppRuleStore::replaceAll(std::vector<AppRule> contents)
{
    m_rules = std::move(contents);
    return m_store.save(m_rules);
}

} // namespace Panorel
