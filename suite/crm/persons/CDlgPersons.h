// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/TzCRMExport.h"

#include <QTimer>

class CTblPersons;
class QKeyEvent;

// The list of persons: a tab page of the host ("اشخاص"), or, in select mode, the picker of other windows.
//
// The search runs while typing. From the search line Up, Down, PageUp and PageDown move in the list, Enter picks the
// selected person (opens it outside select mode), Insert adds a person, F2 edits the selected one and F6 shows its statement.
class TZCRM_EXPORT CDlgPersons : public KListPage
{
    Q_OBJECT

public:
    // SelectPerson's mode: pick one active person.
    static constexpr int modePickOne = 2;

    explicit CDlgPersons(QWidget *parent = nullptr);
    ~CDlgPersons() override;

    // Lets the user pick a person; current is selected at first (0: nobody) and may be inactive. The chosen person's key; 0
    // when the window was cancelled, the user may not see persons, or the mode is not modePickOne.
    [[nodiscard]] static int SelectPerson(QWidget *parent, int mode, int current);

    bool OnOK() override;
    void OnClosing() override;
    void resetFilter() override;

    // Opens the editor for a new person, prefilled from what was searched for; the new person is selected.
    void addPerson();
    void editPerson();
    void showPerson();
    // Persons out of a spreadsheet.
    void importFile();
    // What the books say of the selected person.
    void showStatement();
    // A letter to each of the marked persons.
    void writeLetter();
    void showFiles();

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    bool completesRows() const override { return true; }
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void prepareSearch();
    void searchNow();
    void notice(qsizetype rows);
    void lead(CTblPersons &person, QVector<KListModel::Row> &rows);
    bool searchKeyPressed(QKeyEvent *event);
    bool listKeyPressed(QKeyEvent *event);

    KEdit *m_search = nullptr;
    QLabel *m_notice = nullptr;
    QTimer m_typing;
    int m_leadingKey = 0; // stands first in the list until something is searched for; active or not
};
