// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/utility/frame/KDialog.h"

class ImportCheckPage;
class ImportColumnsPage;
class ImportFilePage;
class QAbstractButton;
class QPushButton;
class QStackedWidget;

// Brings rows of a spreadsheet into a list of the office, in three steps: the file, its columns, what a dry run says. All of the file is
// imported, or nothing.
class TZACCOUNTING_EXPORT CDlgImport : public KDialog
{
    Q_OBJECT

public:
    enum Step {
        File,
        Columns,
        Check
    };

    // kind: of ImportKinds.
    explicit CDlgImport(const QString &kind, QWidget *parent = nullptr);
    ~CDlgImport() override;

    // Opens the window where the user may add such records and the office is open. Whether anything was imported or taken back.
    static bool run(const QString &kind, QWidget *parent);

    // Reads the file, as choosing it does. False, with a message, when it is none.
    bool openFile(const QString &path);
    // Also what the primary button does: on to the next step, or the import.
    bool OnOK() override;
    void back();
    Step step() const;
    ImportFilePage *filePage() const { return m_file; }
    ImportColumnsPage *columnsPage() const { return m_columns; }
    ImportCheckPage *checkPage() const { return m_check; }

private:
    void goTo(Step step);
    void chooseFile();
    void saveSample();
    void keepColumns();
    void dropColumns(const QString &name);
    bool checkRows();
    bool mayImport();
    bool importRows();
    bool refuse(const QString &message, QWidget *focus);

    const ImportKind &m_kind;
    Importing::File m_content;
    QList<ImportRow> m_parsed;
    QString m_folder;
    bool m_tookBack = false;
    QStackedWidget *m_steps;
    ImportFilePage *m_file;
    ImportColumnsPage *m_columns;
    ImportCheckPage *m_check;
    QPushButton *m_back = nullptr;
    QAbstractButton *m_next = nullptr;
};
