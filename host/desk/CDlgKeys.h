// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/desk/KeyList.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;
class KExtListCtrl;

// The keys of the program by group, to look through, to search and to print.
class CDlgKeys : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgKeys(QVector<KeyList::Entry> keys, QWidget *parent = nullptr);

private:
    void build();
    // Those in which every typed word stands.
    void showMatching(const QString &typed);
    void print();

    QVector<KeyList::Entry> m_keys;
    KEdit *m_search;
    KExtListCtrl *m_list;
};
