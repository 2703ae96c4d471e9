// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentRows.h"
#include "suite/accounting/lists/KListPage.h"

class DocumentRowsPane;

// The accounting documents with the rows of the selected one. Manual documents are written here; one that a contract, a
// receipt or an invoice created belongs to that and is only changed there.
class CDlgDocuments : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgDocuments(QWidget *parent = nullptr);

    // The list of the selected document's rows.
    KExtListCtrl *rowsList() const;
    QString totalsText() const;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    bool completesRows() const override { return true; }
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void buildRowsPane();
    void addDocument();
    // The balances that the year begins with, out of a spreadsheet.
    void importOpening();
    void editDocument();
    void printDocument();
    void deleteDocument();
    void selectDocument(int num, int fiscalYear);
    // The selected row's; number 0 when none is selected.
    DocumentRows::DocumentKey currentDocument() const;
    void showRows(int key);

    DocumentRowsPane *m_rows = nullptr;
    QHash<int, DocumentRows::DocumentKey> m_keys; // of the records of the list, by their keys
};
