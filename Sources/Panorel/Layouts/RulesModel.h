#pragma once

#include "Panorel/Settings/SettingsModel.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>

namespace Panorel {

/// The rules of all applications as a table: the application, and a column for each of what may be
/// decided for it, which is checked or not.
class RulesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Application, Ignored, RestoreSize, columnCountOfAll };

    explicit RulesModel(SettingsModel &model, QObject *parent = nullptr);

    /// Only applications whose name or identifier contains the text, in any case.
    void setFilter(const QString &text);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    void refresh();
    std::vector<RuleRow> matching() const;
    const QIcon &icon(const QString &bundleID) const;

    SettingsModel &m_model;
    QString m_filter;
    std::vector<RuleRow> m_rows;
    mutable QHash<QString, QIcon> m_icons; ///< looking one up takes a while; only as rows show
};

} // namespace Panorel
