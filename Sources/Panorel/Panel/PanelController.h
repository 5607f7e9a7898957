#pragma once

#include "Panorel/Panel/PanelPosition.h"
#include "Panorel/Panel/SceneList.h"

#include <memory>

namespace Panorel {

class PanelModel;
class PanelWindow;
class Prefs;
class ShellPort;

/// Shows the panel and takes it away. A panel is built anew at each opening. It stays when
/// another window is clicked: the user looks from it to the windows it puts back.
class PanelController : public QObject {
    Q_OBJECT

public:
    /// What a panel does with the keyboard when it opens. One that was clicked open leaves it to
    /// the window that has it.
    enum class Keyboard { Leave, Take };

    /// All must outlive the controller.
    PanelController(PanelModel &model, Prefs &prefs, ShellPort &shell, HotKeyText textOf);
    ~PanelController() override;

    /// A second press of the button: away with it.
    void toggle(const PanelAnchor &relativeTo, Keyboard keyboard = Keyboard::Leave);

    /// An open panel comes to the front where it is.
    void open(const PanelAnchor &relativeTo, Keyboard keyboard);
    void close();
    bool isOpen() const { return m_panel != nullptr; }
    /// Null while closed.
    PanelWindow *window() const { return m_panel.get(); }

private:
    struct DeleteLater {
        void operator()(PanelWindow *panel) const;
    };

    void build();
    void place();

    PanelModel &m_model;
    Prefs &m_prefs;
    ShellPort &m_shell;
    HotKeyText m_textOf;
    PanelAnchor m_anchor;
    /// Deleted later: what closes it may run inside of it.
    std::unique_ptr<PanelWindow, DeleteLater> m_panel;
};

} // namespace Panorel
