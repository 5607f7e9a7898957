#include "Panorel/Settings/SceneCollection.h"

#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Confirmation.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/SectionHeading.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/UndoLine.h"

#include <QPointer>
#include <QVBoxLayout>

#include <utility>

namespace Panorel {

SceneCollection::SceneCollection(const QString &title, SettingsModel &model, EditScene editScene,
                                 const std::optional<SettingsEnvironment> &environment,
                                 QWidget *parent)
    : Page(title, parent), m_model(model), m_editScene(std::move(editScene)),
      m_environment(environment), m_add(new PlainButton(tr("Add scene from current windows"))),
      m_undo(new UndoLine),
      m_empty(new EmptyState(Symbol::Scene,
                             tr("A scene is an arrangement of windows that you can switch to at "
                                "any time. Yours will appear here."),
                             tr("Add scene from current windows"))),
      m_list(new QWidget)
{
    addToHeader(m_add);
    addWidget(m_undo);
    addWidget(m_list);
    addFilling(m_empty);
    auto *layout = new QVBoxLayout(m_list);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::small);
    connect(m_add, &PlainButton::clicked, this, &SceneCollection::add);
    connect(m_empty, &EmptyState::clicked, this, &SceneCollection::add);
    connect(&m_model, &SettingsModel::changed, this, &SceneCollection::refresh);
    refresh();
}

void SceneCollection::refresh()
{
    std::vector<SceneGroup> groups = sceneGroups(m_model);
    m_add->setVisible(!groups.empty());
    m_list->setVisible(!groups.empty());
    m_empty->setVisible(groups.empty());
    if (groups == m_groups)
        return;
    m_groups = std::move(groups);
    arrange();
}

/// Cards of scenes that are still there stay, with the focus, open options and what is being
/// written in them.
void SceneCollection::arrange()
{
    while (QLayoutItem *item = m_list->layout()->takeAt(0)) {
        if (!qobject_cast<SceneCard *>(item->widget())) {
            item->widget()->hide();
            item->widget()->deleteLater();
        }
        delete item;
    }
    std::vector<SceneCard *> cards;
    for (const SceneGroup &group : m_groups) {
        auto *heading =
            new SectionHeading(group.deskName, group.isCurrent ? tr("Current desk") : QString());
        if (m_list->layout()->count() > 0) // nearer to what it is above
            heading->layout()->setContentsMargins(Metrics::small, Metrics::medium, Metrics::small,
                                                  0);
        m_list->layout()->addWidget(heading);
        for (const SceneRecord &scene : group.scenes) {
            SceneCard *card = takeCard(scene.id);
            card->setScene(scene);
            m_list->layout()->addWidget(card);
            cards.push_back(card);
        }
    }
    for (SceneCard *card : std::exchange(m_cards, std::move(cards))) {
        if (!card)
            continue;
        card->hide();
        card->deleteLater(); // it may be what was pressed
    }
    orderTabsByLayout(*widget());
}

SceneCard *SceneCollection::takeCard(const QUuid &id)
{
    const auto found = std::ranges::find_if(
        m_cards, [&id](const SceneCard *card) { return card && card->id() == id; });
    return found == m_cards.end() ? makeCard() : std::exchange(*found, nullptr);
}

SceneCard *SceneCollection::makeCard()
{
    auto *card = new SceneCard(m_model, m_environment);
    card->setEditable(bool(m_editScene));
    connect(card, &SceneCard::editRequested, this, [this](const QUuid &id) { m_editScene(id); });
    connect(card, &SceneCard::deleteRequested, this, &SceneCollection::askToDelete);
    return card;
}

void SceneCollection::add()
{
    const QUuid id = m_model.addSceneFromCurrentWindows().id;
    const auto added = std::ranges::find(m_cards, id, &SceneCard::id);
    if (added == m_cards.end())
        return;
    (*added)->startNaming();
    // Once it has its place.
    QMetaObject::invokeMethod(
        *added, [this, card = *added] { ensureWidgetVisible(card); }, Qt::QueuedConnection);
}

void SceneCollection::askToDelete(const QUuid &id)
{
    const SceneRecord *scene = m_model.scene(id);
    if (!scene)
        return;
    const auto triggers = std::ranges::count(m_model.triggers(), id, &TriggerRecord::sceneID);
    QString loss = tr("Its arrangement of %1, its options and its key are removed.")
                       .arg(windowCountText(scene->layout.windows.size()));
    if (triggers > 0)
        loss += u' ' + tr("What should apply it on its own will do nothing.");
    confirm(window(), {tr("Delete “%1”?").arg(scene->name), loss, tr("Delete")},
            [self = QPointer(this), id] {
                if (self)
                    self->remove(id);
            });
}

void SceneCollection::remove(const QUuid &id)
{
    const SceneRecord *stored = m_model.scene(id);
    if (!stored)
        return;
    const SceneRecord scene = *stored;
    m_model.removeScene(id);
    m_undo->offer(tr("“%1” was deleted.").arg(scene.name),
                  [this, scene] { m_model.addScene(scene); });
    m_undo->setFocus(Qt::OtherFocusReason); // the keyboard's place went with the scene
    ensureVisible(0, 0);
}

} // namespace Panorel
