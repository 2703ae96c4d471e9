// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QList>
#include <QStringList>

#include <functional>

class KEdit;
class QListView;
class QPushButton;
class QStandardItem;
class QStandardItemModel;

// Picks any number of the values of one item type; values can be added, renamed and deleted on the spot. What is ticked
// is returned in the order of the list.
class TZACCOUNTING_EXPORT CDlgMultiItems : public KDialog
{
    Q_OBJECT

public:
    CDlgMultiItems(int itemType, const QString &title, QWidget *parent = nullptr);
    ~CDlgMultiItems() override;

    // Ticks the values with these names; names that the type does not have are left out.
    void setSelectedNames(const QStringList &names);
    QStringList selectedNames() const;
    QList<int> selectedIDs() const;

    // Runs the picker over a text of names joined by separator(); true when it was confirmed, the text is then the new one.
    // What stands in the text and is no value of the type stays in front.
    static bool Select(int itemType, const QString &title, QString *text, QWidget *parent);
    static QString separator();

    // The commands behind the buttons; the name comes from the entry line. They need the rights on form "InputParameters"
    // and an open database.
    void addValue();
    void renameValue();
    // Asks first.
    void deleteValue();

protected:
    // Enter behind a new name adds it.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    void fill(const QList<int> &ticked, int currentID);
    QStandardItem *currentItem() const;
    void showCurrent();
    bool newNameIsTyped() const;
    void change(const std::function<int()> &work);

    int m_itemType;
    KEdit *m_name;
    QListView *m_view;
    QStandardItemModel *m_model;
    QPushButton *m_renameButton = nullptr;
    QPushButton *m_deleteButton = nullptr;
};
