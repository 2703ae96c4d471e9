// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/RightsGridModel.h"

#include "suite/accounting/office/KSecurity.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array columnRights{KSecurity::Access, KSecurity::Read, KSecurity::Write,
                                  KSecurity::Modify, KSecurity::Delete, KSecurity::PrintList};

KSecurity::Right rightAt(int column)
{
    return columnRights.at(static_cast<std::size_t>(column));
}

int rightsOfForm(const KSecurity::Form &form)
{
    return form.single ? KSecurity::Access : KSecurity::allRights;
}

}

RightsGridModel::RightsGridModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void RightsGridModel::setRights(const QHash<QString, int> &rights)
{
    beginResetModel();
    m_rights = rights;
    endResetModel();
}

void RightsGridModel::setAll(bool granted)
{
    beginResetModel();
    for (const KSecurity::Form &form : KSecurity::forms())
        m_rights.insert(form.name, granted ? rightsOfForm(form) : 0);
    endResetModel();
}

int RightsGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(KSecurity::forms().size());
}

int RightsGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columnRights.size());
}

bool RightsGridModel::applies(const QModelIndex &index) const
{
    return checkIndex(index, CheckIndexOption::IndexIsValid)
        && (rightsOfForm(KSecurity::forms().at(index.row())) & rightAt(index.column()));
}

QVariant RightsGridModel::data(const QModelIndex &index, int role) const
{
    if (!applies(index))
        return {};
    const KSecurity::Form &form = KSecurity::forms().at(index.row());
    const KSecurity::Right right = rightAt(index.column());
    if (role == Qt::CheckStateRole)
        return m_rights.value(form.name) & right ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return form.caption + u" - "_s + KSecurity::rightCaption(right);
    return {};
}

bool RightsGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !applies(index))
        return false;
    const KSecurity::Form &form = KSecurity::forms().at(index.row());
    const KSecurity::Right right = rightAt(index.column());
    int &rights = m_rights[form.name];
    if (value.toInt() != Qt::Unchecked)
        rights |= right | KSecurity::Access;
    else
        rights = right == KSecurity::Access ? 0 : rights & ~right;
    Q_EMIT dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1), {Qt::CheckStateRole});
    return true;
}

QVariant RightsGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return orientation == Qt::Horizontal ? KSecurity::rightCaption(rightAt(section)) : KSecurity::forms().at(section).caption;
}

Qt::ItemFlags RightsGridModel::flags(const QModelIndex &index) const
{
    return applies(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable : Qt::NoItemFlags;
}
