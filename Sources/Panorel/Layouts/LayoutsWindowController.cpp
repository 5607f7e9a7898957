#include "Panorel/Layouts/LayoutsWindowController.h"

#include "Panorel/Layouts/DesksTab.h"
#include "Panorel/Layouts/LayoutsWindow.h"
#include "Panorel/Layouts/RulesTab.h"
#include "Panorel/Settings/SceneCollection.h"
#include "Panorel/UI/WindowFrame.h"

namespace Panorel {

LayoutsWindowController::LayoutsWindowController(SettingsModel &model, UserDefaultsPort &defaults,
                                                 EditScene editScene, const Clock &clock)
    : m_model(model), m_defaults(defaults), m_editScene(std::move(editScene)), m_clock(clock)
{}

LayoutsWindowController::~LayoutsWindowController()
{
    if (m_window)
        m_window->close(); // which remembers its frame
}

const Clock &LayoutsWindowController::systemClock()
{
    static const SystemClock clock;
    return clock;
}

void LayoutsWindowController::show(std::optional<LayoutsSection> section)
{
    if (section)
        m_model.setLayoutsSection(*section);
    m_model.refresh();
    if (!m_window)
        build();
    if (m_window->isMinimized())
        m_window->showNormal();
    else
        m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void LayoutsWindowController::build()
{
    constexpr QSize size{720, 640};
    m_window = std::make_unique<LayoutsWindow>(
        m_model, std::vector<QWidget *>{new DesksTab(m_model, m_clock),
                                        new SceneCollection(LayoutsWindow::tr("Saved scenes"),
                                                            m_model, m_editScene, {}),
                                        new RulesTab(m_model)});
    new WindowFrame(*m_window, m_defaults, QStringLiteral("layouts"), size);
}

} // namespace Panorel
