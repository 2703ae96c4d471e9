// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/KDialog.h"

#include <QStringList>

class QPushButton;
class QStandardItem;
class QStandardItemModel;
class QListView;

// Picks any number of the values of one item type; values can be added, renamed and deleted on the spot.
class TZACCOUNTING_EXPORT CDlgMultiItems : public KDialog
{
    Q_OBJECT

public:
    CDlgMultiItems(int itemType, const QString &title, QWidget *parent = nullptr);
    ~CDlgMultiItems() override;

    // Ticks the values of these names; names that the type does not have are left out.
    void setSelectedNames(const QStringList &names);
    QStringList selectedNames() const;
    QList<int> selectedIDs() const;

    // Runs the picker over a text of names joined by separator(): true when it was confirmed, the text is then the new one.
    static bool Select(int itemType, const QString &title, QString *text, QWidget *parent);
    static QString separator();

    bool OnOK() override;

    // Add and rename ask for the name first; delete asks a question.
    void addItem();
    void renameItem();
    void deleteItem();

private:
    void fill(const QStringList &ticked);
    QStandardItem *currentItem() const;
    bool changesAllowed();

    int m_itemType;
    QListView *m_view;
    QStandardItemModel *m_model;
    QPushButton *m_renameButton;
    QPushButton *m_deleteButton;
};
