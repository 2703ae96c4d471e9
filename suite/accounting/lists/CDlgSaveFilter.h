// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/lists/CTblSavedFilters.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;
class QCheckBox;

// Keeps a filter of a list under a name, or gives one that is kept another name.
class TZACCOUNTING_EXPORT CDlgSaveFilter : public KDialog
{
    Q_OBJECT

public:
    // The list's section and the form whose right to modify lets a user keep filters for all. The entry without a key is a new one.
    CDlgSaveFilter(const QString &list, const QString &form, CTblSavedFilters::Entry entry, QWidget *parent = nullptr);
    ~CDlgSaveFilter() override;

    // Whether the user may keep the filter, or change or delete it where it has a key. Says why not.
    static bool mayKeep(const QString &form, const CTblSavedFilters::Entry &entry, QWidget *parent);

    KEdit *name() const { return m_name; }
    QCheckBox *isShared() const { return m_shared; }

protected:
    bool OnOK() override;

private:
    bool isSaved(const CTblSavedFilters::Entry &before, const CTblSavedFilters::Entry &after);

    QString m_list;
    QString m_form;
    CTblSavedFilters::Entry m_entry;
    KEdit *m_name;
    QCheckBox *m_shared;
};
