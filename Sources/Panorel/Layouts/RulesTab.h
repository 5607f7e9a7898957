#pragma once

#include <QWidget>

class QLineEdit;
class QTableView;

namespace Panorel {

class Card;
class EmptyState;
class RulesModel;
class SettingsModel;
class TextLabel;

/// What is decided for single applications, as a table to search in. Rows are drawn and not made:
/// there may be thousands.
class RulesTab : public QWidget {
    Q_OBJECT

public:
    explicit RulesTab(SettingsModel &model, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    QTableView *makeTable();
    void refresh();
    void fitRows();

    SettingsModel &m_settings;
    RulesModel *m_rules;
    QLineEdit *m_search;
    TextLabel *m_explanation;
    TextLabel *m_noMatch;
    Card *m_list; ///< the table's
    QTableView *m_table;
    EmptyState *m_empty;
};

} // namespace Panorel
