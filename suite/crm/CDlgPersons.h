// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/KSecurity.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/KDialogTabPage.h"

#include <QTimer>

class CTblPersons;
class KEdit;
class KExtListCtrl;
class QCheckBox;
class QLabel;
class QPushButton;

// The list of persons: a tab page of the host ("اشخاص"), or, in select mode, the picker of other windows.
//
// The search runs while typing. From the search line Up, Down, PageUp and PageDown move in the list, Enter picks the
// selected person (opens it outside select mode), Insert adds a person and F2 edits the selected one.
class TZCRM_EXPORT CDlgPersons : public KDialogTabPage, private KSecurity
{
    Q_OBJECT

public:
    // SelectPerson's mode: pick one active person.
    static constexpr int modePickOne = 2;

    explicit CDlgPersons(QWidget *parent = nullptr);
    ~CDlgPersons() override;

    // Lets the user pick a person; current is selected at first (0: nobody). The chosen person's key; 0 when the window was
    // cancelled, the user may not see persons, or the mode is not modePickOne.
    [[nodiscard]] static int SelectPerson(QWidget *parent, int mode, int current);

    // To be called before the page is shown.
    void setSelectMode(int current);
    // In select mode the person that OK picked; 0 until then.
    int chosenID() const { return m_chosen; }

    bool OnAccess() override;
    bool OnOK() override;
    void OnClosing() override;

    // Searches at once, without waiting for the end of typing.
    void refill();
    // Opens the editor for a new person, prefilled from what was searched for; the new person is selected.
    void addPerson();
    void editPerson();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build();
    QWidget *buildFilter();
    QWidget *buildButtons();
    void enableCommands();
    void activate();
    bool moveInList(int key);
    void sortBy(int column);
    void markSortColumn(bool on);
    QString filterText() const;
    QString sortText() const;
    void fillRows(CTblPersons &persons, int limit);
    bool closed() const;

    KEdit *m_search;
    QCheckBox *m_showInactive;
    KEdit *m_maxRows;
    KExtListCtrl *m_list;
    QLabel *m_count;
    QPushButton *m_addButton;
    QPushButton *m_editButton;
    QTimer m_typing;
    QString m_sort;
    bool m_descending = false;
    int m_lastColumn = 0;
    bool m_selectMode = false;
    bool m_filled = false;
    int m_preselected = 0;
    int m_chosen = 0;
};
