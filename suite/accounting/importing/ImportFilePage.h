// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/importing/ImportKind.h"
#include "suite/utility/frame/CardPage.h"

class KEdit;
class KExtListCtrl;
class QComboBox;
class QPushButton;
class QSpinBox;

// The first step of an import: the file, its sheet, the row of the titles, and the rows as they were read.
class TZACCOUNTING_EXPORT ImportFilePage : public CardPage
{
    Q_OBJECT

public:
    explicit ImportFilePage(const ImportKind &kind, QWidget *parent = nullptr);

    void showFile(const QString &path, const QList<Sheet> &sheets);
    bool hasFile() const { return !m_sheets.isEmpty(); }
    const Sheet &sheet() const;
    int titleRow() const; // from 0
    QPushButton *chooseButton() const { return m_choose; }

Q_SIGNALS:
    void fileWanted();
    void sampleWanted();
    void earlierWanted();

private:
    void sheetChosen();
    void preview();

    const ImportKind &m_kind;
    QList<Sheet> m_sheets;
    KEdit *m_path;
    QPushButton *m_choose;
    QComboBox *m_sheet;
    QSpinBox *m_titleRow;
    KExtListCtrl *m_rows;
};
