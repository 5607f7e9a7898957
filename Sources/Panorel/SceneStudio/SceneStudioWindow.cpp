#include "Panorel/SceneStudio/SceneStudioWindow.h"

#include "Panorel/SceneStudio/SceneStudioCanvas.h"
#include "Panorel/SceneStudio/UnsavedChangesDialog.h"
#include "Panorel/UI/ApplicationIcon.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/SymbolButton.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/TextLabel.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>
#include <QStackedWidget>

namespace Panorel {

namespace {

/// A window's title, in which "[*]" stands for something else.
QString titleOf(const QString &name)
{
    return name.simplified().replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

} // namespace

SceneStudioWindow::SceneStudioWindow(const SceneRecord &scene, WorkspacePort &workspace,
                                     AppLog &log, const Clock &clock,
                                     std::function<void(const SceneRecord &)> onSave)
    : m_model(scene, workspace, log, clock, std::move(onSave)),
      m_canvas(new SceneStudioCanvas(m_model, m_history)), m_stage(new QStackedWidget),
      m_add(new PlainButton(tr("Add application"))),
      m_remove(new SymbolButton(Symbol::Trash, tr("Remove window"))),
      m_undo(new SymbolButton(Symbol::Undo, tr("Undo"))),
      m_redo(new SymbolButton(Symbol::Redo, tr("Redo"))),
      m_note(new TextLabel(TextStyle::Secondary))
{
    setWindowTitle(titleOf(scene.name));
    auto *empty = new EmptyState(Symbol::Window,
                                 tr("The windows of this scene will appear here, where you can "
                                    "arrange them. Add a running application to begin."),
                                 tr("Add application"));
    m_stage->addWidget(m_canvas);
    m_stage->addWidget(empty);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addLayout(makeTools());
    layout->addWidget(m_stage, 1);
    layout->addLayout(makeBar());
    orderTabsByLayout(*this);
    addShortcuts();

    connect(empty, &EmptyState::clicked, this,
            [this, empty] { showApplications(*empty->findChild<ActionControl *>()); });
    connect(&m_model, &SceneStudioModel::changed, this, &SceneStudioWindow::refresh);
    connect(&m_history, &StudioHistory::changed, this, &SceneStudioWindow::refresh);
    connect(m_canvas, &SceneStudioCanvas::selectionChanged, this, &SceneStudioWindow::refresh);
    refresh();
    m_canvas->setFocus();
}

SceneStudioWindow::~SceneStudioWindow()
{
    // The canvas is the last to use the model.
    delete m_canvas;
}

QBoxLayout *SceneStudioWindow::makeTools()
{
    m_add->setObjectName(QStringLiteral("add"));
    auto *tools = new QHBoxLayout;
    tools->setContentsMargins(Metrics::medium, Metrics::small, Metrics::medium, Metrics::small);
    tools->setSpacing(Metrics::tight);
    tools->addWidget(m_add);
    tools->addStretch();
    tools->addWidget(m_remove);
    tools->addSpacing(Metrics::small);
    tools->addWidget(m_undo);
    tools->addWidget(m_redo);
    connect(m_add, &PlainButton::clicked, this, [this] { showApplications(*m_add); });
    connect(m_remove, &ActionControl::clicked, m_canvas, &SceneStudioCanvas::removeSelected);
    connect(m_undo, &ActionControl::clicked, this, &SceneStudioWindow::undo);
    connect(m_redo, &ActionControl::clicked, this, &SceneStudioWindow::redo);
    return tools;
}

QBoxLayout *SceneStudioWindow::makeBar()
{
    m_note->setObjectName(QStringLiteral("note"));
    auto *cancel = new PlainButton(tr("Cancel"));
    auto *done = new PrimaryButton(tr("Save"));
    done->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    cancel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored); // as high as Save
    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(Metrics::medium, Metrics::medium, Metrics::medium, Metrics::medium);
    bar->setSpacing(Metrics::small);
    bar->addWidget(m_note, 1);
    bar->addWidget(cancel);
    bar->addWidget(done);
    connect(cancel, &PlainButton::clicked, this, &QWidget::close);
    connect(done, &PrimaryButton::clicked, this, &SceneStudioWindow::save);
    return bar;
}

void SceneStudioWindow::addShortcuts()
{
    const auto add = [this](QKeyCombination keys, void (SceneStudioWindow::*action)()) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::CTRL | Qt::Key_Z, &SceneStudioWindow::undo);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &SceneStudioWindow::redo);
    add(Qt::CTRL | Qt::Key_Y, &SceneStudioWindow::redo);
    add(Qt::CTRL | Qt::Key_S, &SceneStudioWindow::save);
}

void SceneStudioWindow::refresh()
{
    const bool isEmpty = m_model.boxes().empty();
    const bool hadFocus = m_canvas->hasFocus();
    m_stage->setCurrentIndex(isEmpty ? 1 : 0);
    m_add->setVisible(!isEmpty); // the empty state has a button of its own
    m_remove->setVisible(!isEmpty);
    if (isEmpty && hadFocus)
        m_stage->currentWidget()->findChild<ActionControl *>()->setFocus(Qt::OtherFocusReason);
    m_remove->setEnabled(m_canvas->selected().has_value());
    m_undo->setEnabled(m_history.canUndo());
    m_redo->setEnabled(m_history.canRedo());
    if (isEmpty)
        m_note->clear();
    else if (m_canvas->selected())
        m_note->setText(m_canvas->description());
    else
        m_note->setText(tr("Drag a window to move it, or its edges to resize it."));
}

/// Below the button that was pressed.
void SceneStudioWindow::showApplications(const QWidget &button)
{
    m_canvas->finishGesture();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    constexpr int longestName = 320;
    for (const SceneStudioModel::App &app : m_model.addableApps()) {
        QString name =
            menu->fontMetrics().elidedText(app.name.simplified(), Qt::ElideRight, longestName);
        name.replace(u'&', QStringLiteral("&&"));
        menu->addAction(applicationIcon(app.bundleID), name, this, [this, app] { add(app); });
    }
    if (menu->isEmpty())
        menu->addAction(tr("No other applications are running"))->setEnabled(false);
    menu->popup(button.mapToGlobal(QPoint(0, button.height() + Metrics::tight)));
}

void SceneStudioWindow::add(const SceneStudioModel::App &app)
{
    m_canvas->finishGesture();
    m_history.begin();
    const int id = m_model.addApp(app.bundleID, app.name);
    m_history.end();
    m_canvas->select(id);
    m_canvas->setFocus(Qt::OtherFocusReason);
}

void SceneStudioWindow::undo()
{
    m_canvas->finishGesture();
    m_history.undo();
}

void SceneStudioWindow::redo()
{
    m_canvas->finishGesture();
    m_history.redo();
}

void SceneStudioWindow::save()
{
    m_canvas->finishGesture();
    m_model.save();
    discard();
}

void SceneStudioWindow::discard()
{
    m_isDecided = true;
    close();
}

void SceneStudioWindow::closeEvent(QCloseEvent *event)
{
    m_canvas->finishGesture();
    const bool mayClose = m_isDecided || !m_history.isChanged();
    event->setAccepted(mayClose);
    if (mayClose)
        Q_EMIT closing();
    else
        askBeforeClosing();
}

void SceneStudioWindow::askBeforeClosing()
{
    if (findChild<UnsavedChangesDialog *>())
        return; // it is being asked
    auto *dialog = new UnsavedChangesDialog(m_model.sceneName(), this);
    connect(dialog, &UnsavedChangesDialog::saveChosen, this, &SceneStudioWindow::save);
    connect(dialog, &UnsavedChangesDialog::discardChosen, this, &SceneStudioWindow::discard);
    dialog->open();
}

void SceneStudioWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace Panorel
