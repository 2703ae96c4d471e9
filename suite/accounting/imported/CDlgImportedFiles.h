// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/imported/CTblImportedFiles.h"
#include "suite/accounting/imported/ImportReturn.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class QAbstractButton;
class QLabel;

// The files of a kind that were imported, and the way back: what goes and what stays stands there before anything goes.
class TZACCOUNTING_EXPORT CDlgImportedFiles : public KDialog
{
    Q_OBJECT

public:
    // The kind outlives the window.
    explicit CDlgImportedFiles(const ImportedKind &kind, QWidget *parent = nullptr);
    ~CDlgImportedFiles() override;

    // Whether anything was taken back.
    static bool run(const ImportedKind &kind, QWidget *parent);

    // Asks, and takes the selected file's records back. The window stays open.
    bool OnOK() override;
    KExtListCtrl *files() const { return m_files; }
    KExtListCtrl *staying() const { return m_staying; }
    QString outcome() const;

private:
    void fill();
    void showPlan();
    void take(const ImportReturn::Plan &plan);
    QString question() const;
    bool refuse(const QString &message);
    CTblImportedFiles::Entry chosen() const;

    const ImportedKind &m_kind;
    QList<CTblImportedFiles::Entry> m_entries;
    ImportReturn::Plan m_plan;
    bool m_tookBack = false;
    KExtListCtrl *m_files;
    KExtListCtrl *m_staying;
    QLabel *m_outcome;
    QAbstractButton *m_return = nullptr;
};
