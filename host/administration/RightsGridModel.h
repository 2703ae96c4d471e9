// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractTableModel>
#include <QHash>

// Rights of one user as a grid: one row per form, one column per right, a tick where granted. A right other than
// opening the form is of no use without opening it: granting one grants that too, and revoking that revokes all.
class RightsGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit RightsGridModel(QObject *parent = nullptr);

    // Bits of KSecurity::Right by form; forms that the grid does not show are kept as they are.
    QHash<QString, int> rights() const { return m_rights; }
    void setRights(const QHash<QString, int> &rights);
    void setAll(bool granted);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    // Whether the form has the right at all: a permission is only granted or not.
    bool applies(const QModelIndex &index) const;

    QHash<QString, int> m_rights;
};
