#include "Panorel/Layouts/RulesModel.h"

#include "Panorel/UI/ApplicationIcon.h"
#include "Panorel/UI/PlainLine.h"

#include <algorithm>

namespace Panorel {

RulesModel::RulesModel(SettingsModel &model, QObject *parent)
    : QAbstractTableModel(parent), m_model(model), m_rows(matching())
{
    connect(&m_model, &SettingsModel::changed, this, &RulesModel::refresh);
}

void RulesModel::setFilter(const QString &text)
{
    m_filter = text.trimmed();
    refresh();
}

/// The selection and the place in the list stay where the applications are the same.
void RulesModel::refresh()
{
    std::vector<RuleRow> rows = matching();
    if (rows == m_rows)
        return;
    const auto sameApplication = [](const RuleRow &one, const RuleRow &other) {
        return one.rule.bundleID == other.rule.bundleID && one.appName == other.appName;
    };
    if (std::ranges::equal(rows, m_rows, sameApplication)) {
        m_rows = std::move(rows);
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCountOfAll - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

std::vector<RuleRow> RulesModel::matching() const
{
    std::vector<RuleRow> rows;
    std::ranges::copy_if(m_model.rules(), std::back_inserter(rows), [this](const RuleRow &row) {
        return row.appName.contains(m_filter, Qt::CaseInsensitive)
               || row.rule.bundleID.contains(m_filter, Qt::CaseInsensitive);
    });
    return rows;
}

int RulesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int RulesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnCountOfAll;
}

QVariant RulesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto &[name, rule] = m_rows[std::size_t(index.row())];
    if (index.column() == Application) {
        switch (role) {
        case Qt::DisplayRole:
            return plainLine(name);
        case Qt::ToolTipRole:
            return plainToolTip(rule.bundleID);
        case Qt::DecorationRole:
            return icon(rule.bundleID);
        default:
            return {};
        }
    }
    const bool isOn = index.column() == Ignored ? rule.ignored : rule.restoreSize;
    if (role == Qt::CheckStateRole)
        return isOn ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole)
        return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString()
               + QStringLiteral(", ") + plainLine(name);
    return {};
}

QVariant RulesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Application:
        return tr("Application");
    case Ignored:
        return tr("Ignore");
    default:
        return tr("Always restore the size");
    }
}

Qt::ItemFlags RulesModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Application ? flags : flags | Qt::ItemIsUserCheckable;
}

bool RulesModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() == Application || !checkIndex(index))
        return false;
    AppRule rule = m_rows[std::size_t(index.row())].rule;
    (index.column() == Ignored ? rule.ignored : rule.restoreSize) =
        value.value<Qt::CheckState>() == Qt::Checked;
    m_model.setRule(rule); // and the row is refreshed with everything else
    return true;
}

const QIcon &RulesModel::icon(const QString &bundleID) const
{
    auto found = m_icons.find(bundleID);
    if (found == m_icons.end())
        found = m_icons.insert(bundleID, applicationIcon(bundleID));
    return *found;
}

} // namespace Panorel
