// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/administration/RightsEdit.h"
#include "suite/utility/frame/KDialog.h"

class QComboBox;
class QHBoxLayout;
class QTableView;
class RightsGridModel;

// The rights of one user: forms by rights. They can be copied from another user and then changed.
class CDlgUserRights : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgUserRights(int userID, QWidget *parent = nullptr);

    RightsGridModel *grid() const { return m_grid; }

protected:
    bool OnOK() override;

private:
    void fillCopyRow(QHBoxLayout *row);
    void buildView();
    void takeOver();

    int m_userID;
    RightsEdit m_edit;
    RightsGridModel *m_grid;
    QTableView *m_view;
    QComboBox *m_source;
};
