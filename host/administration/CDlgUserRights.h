// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/administration/RightsEdit.h"
#include "suite/utility/frame/KDialog.h"

#include <QHash>

#include <functional>

class QComboBox;
class QHBoxLayout;
class QPushButton;
class QTableView;
class RightsGridModel;

// The rights of one user: forms by rights. They can be copied from another user, or taken from a role, and then changed.
class CDlgUserRights : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgUserRights(int userID, QWidget *parent = nullptr);

    RightsGridModel *grid() const { return m_grid; }

protected:
    bool OnOK() override;

private:
    void fillRoleRow(QHBoxLayout *row);
    void fillCopyRow(QHBoxLayout *row);
    void addSource(QHBoxLayout *row, const QString &label, QComboBox *source, const QString &caption, const std::function<QHash<QString, int>()> &rights);
    QPushButton *addButton(QHBoxLayout *row, const QString &caption, const std::function<void()> &action);
    void buildView();
    void replace(const QHash<QString, int> &rights);
    void fill(const QHash<QString, int> &rights);

    int m_userID;
    RightsEdit m_edit;
    RightsGridModel *m_grid;
    QTableView *m_view;
    QComboBox *m_role;
    QComboBox *m_source;
    QHash<QString, int> m_shown; // as they came into the grid; what differs from them was ticked by hand
};
