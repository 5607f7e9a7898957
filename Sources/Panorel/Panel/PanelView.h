#pragma once

#include "Panorel/Panel/SceneList.h"
#include "Panorel/UI/Symbols.h"

namespace Panorel {

class DeskCard;
class PanelModel;
class Prefs;
class RestoreArea;
class StatusLine;
class TipCard;

/// What the panel shows: a plain view of the model and the preferences, which it follows. A row
/// whose action the model does not have is not shown.
class PanelView : public QWidget {
    Q_OBJECT

public:
    /// The model and the preferences must outlive it.
    PanelView(PanelModel &model, Prefs &prefs, const HotKeyText &textOf, QWidget *parent = nullptr);

    /// As wide as the font asks for, as high as the contents.
    QSize sizeHint() const override;

    /// For a panel that was opened by keyboard.
    void focusFirstControl();

Q_SIGNALS:
    /// An action leads elsewhere, so the panel has done its work.
    void finished();
    /// The contents have become higher or lower.
    void sizeHintChanged();

protected:
    bool event(QEvent *event) override;

private:
    QWidget *makeHeader();
    ListRow *makeMenuRow(Symbol symbol, const QString &title, const QKeySequence &key,
                         const std::function<void()> &action);
    void addMenuRows();
    void refresh();
    void refreshStatus();
    void refreshStash();
    QString textOf(const std::optional<HotKeyCombo> &combo) const;

    PanelModel &m_model;
    Prefs &m_prefs;
    HotKeyText m_textOf;
    QVBoxLayout *m_layout;
    DeskCard *m_desk;
    StatusLine *m_status;
    RestoreArea *m_restore;
    TipCard *m_tip;
    ListRow *m_stash;
    SceneList *m_scenes;
};

} // namespace Panorel
