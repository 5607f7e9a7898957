#pragma once

#include <QWidget>

namespace Panorel {

class PanelModel;
class PrimaryButton;
class StatusLine;
class TextButton;
class TextLabel;

/// "Restore Now", or what is missing for it, and below it what the last action did.
class RestoreArea : public QWidget {
    Q_OBJECT

public:
    /// The model must outlive it.
    explicit RestoreArea(const PanelModel &model, QWidget *parent = nullptr);

    void refresh();
    /// The keys that do the same, for the tool tips; empty for none.
    void setKeys(const QString &restoreKey, const QString &undoKey);

private:
    QWidget *makePermission();
    QWidget *makeResult();
    void showLastAction();

    const PanelModel &m_model;
    QWidget *m_permission;
    StatusLine *m_missing;
    PrimaryButton *m_grant;
    PrimaryButton *m_restore;
    QWidget *m_result;
    TextLabel *m_lastAction;
    TextButton *m_undo;
};

} // namespace Panorel
