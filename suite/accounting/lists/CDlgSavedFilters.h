// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/lists/CTblSavedFilters.h"
#include "suite/utility/frame/KDialog.h"

#include <QList>

class KExtListCtrl;
class QPushButton;

// The filters that are kept for a list, to give them another name or to delete them.
class TZACCOUNTING_EXPORT CDlgSavedFilters : public KDialog
{
    Q_OBJECT

public:
    CDlgSavedFilters(const QString &list, const QString &form, QWidget *parent = nullptr);
    ~CDlgSavedFilters() override;

    KExtListCtrl *list() const { return m_list; }
    void rename();
    void remove();

private:
    void fill();
    // Of the selected row; without a key when none is selected.
    CTblSavedFilters::Entry chosen() const;

    QString m_section;
    QString m_form;
    KExtListCtrl *m_list;
    QPushButton *m_rename = nullptr;
    QPushButton *m_delete = nullptr;
    QList<CTblSavedFilters::Entry> m_entries;
};
