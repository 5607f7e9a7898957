#pragma once

#include "Panorel/SceneStudio/SceneStudioModel.h"
#include "Panorel/SceneStudio/StudioHistory.h"

#include <QWidget>

class QBoxLayout;
class QStackedWidget;

namespace Panorel {

class ActionControl;
class PlainButton;
class SceneStudioCanvas;
class TextLabel;

/// The editor of one scene: the canvas, a few tools above it, and below it what is selected, Cancel
/// and Save. Nothing is stored before Save; closing asks where that would lose something.
class SceneStudioWindow : public QWidget {
    Q_OBJECT

public:
    /// The ports must outlive it.
    SceneStudioWindow(const SceneRecord &scene, WorkspacePort &workspace, AppLog &log,
                      const Clock &clock, std::function<void(const SceneRecord &)> onSave);
    ~SceneStudioWindow() override;

    SceneStudioModel &model() { return m_model; }
    SceneStudioCanvas &canvas() { return *m_canvas; }

    void save();
    /// Closes it and asks nothing.
    void discard();

Q_SIGNALS:
    /// It is about to go; still has its frame.
    void closing();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QBoxLayout *makeTools();
    QBoxLayout *makeBar();
    void addShortcuts();
    void refresh();
    void askBeforeClosing();
    void showApplications(const QWidget &button);
    void add(const SceneStudioModel::App &app);
    void undo();
    void redo();

    SceneStudioModel m_model;
    StudioHistory m_history{m_model};
    SceneStudioCanvas *m_canvas;
    QStackedWidget *m_stage; ///< the canvas, or what is said of a scene without windows
    PlainButton *m_add;
    ActionControl *m_remove;
    ActionControl *m_undo;
    ActionControl *m_redo;
    TextLabel *m_note;
    bool m_isDecided = false; ///< saved, or to be discarded
};

} // namespace Panorel
