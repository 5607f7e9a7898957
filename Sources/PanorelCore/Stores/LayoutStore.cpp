#include "PanorelCore/Stores/LayoutStore.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

LayoutStore::LayoutStore(AppLog &log, const Clock &clock)
    : m_log(log), m_store(Paths::file(QStringLiteral("layouts.json")), log, clock),
      m_file(m_store.load().value_or(LayoutFile{}))
{}

const Layout *LayoutStore::layoutFor(const QString &configID) const
{
    const auto found = std::ranges::find(m_file.layouts, configID, &Layout::configID);
    return found == m_file.layouts.end() ? nullptr : &*found;
}

Layout *LayoutStore::find(const QString &configID)
{
    return const_cast<Layout *>(std::as_const(*this).layoutFor(configID));
}

QString LayoutStore::deskName(const QString &configID) const
{
    const Layout *layout = layoutFor(configID);
    return layout ? layout->name : QStringLiteral("Desk setup");
}

void LayoutStore::saveLearned(Layout layout)
{
    const QString configID = layout.configID;
    const QString learned =
        QStringLiteral("learned layout: %1 windows for ").arg(layout.windows.size());
    const QString suffix = QStringLiteral(" [") + forLog(layout.layoutName) + QLatin1Char(']');
    if (Layout *known = find(configID)) {
        layout.name = known->name;
        *known = std::move(layout);
    } else {
        m_file.layouts.push_back(std::move(layout));
    }
    m_store.save(m_file);
    m_log.log(learned + forLog(deskName(configID)) + suffix);
}

void LayoutStore::renameDesk(const QString &configID, const QString &name)
{
    Layout *layout = find(configID);
    if (!layout)
        return;
    layout->name = name;
    m_store.save(m_file);
}

void LayoutStore::forgetDesk(const QString &configID)
{
    std::erase_if(m_file.layouts,
                  [&](const Layout &layout) { return layout.configID == configID; });
    m_store.save(m_file);
}

bool LayoutStore::replaceAll(LayoutFile contents)
{
    m_file = std::move(contents);
    return m_store.save(m_file);
}

} // namespace Panorel
