// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CTblItems.h"

#include <QList>

using namespace Qt::StringLiterals;

// The values of one item type, as drop-downs and the multi-item picker use them. They are rows of Items, so a value that is
// added here is offered wherever that type is.
class TZACCOUNTINGDATA_EXPORT CTblMultiItems : public CTblItems
{
public:
    struct Value
    {
        int id = 0;
        QString name;
    };

    // Opened, the set holds the active values of the type, sorted by name.
    explicit CTblMultiItems(int itemType, int database = 0);
    ~CTblMultiItems() override;

    static QList<Value> values(int itemType, int database = 0);
    // That they will be asked (KReadAhead).
    static void expectValues(int itemType, int database = 0);
    // Fills the drop-down with "-" (data 0) and the type's values (data: their keys) and stands on current.
    template <class ComboBox>
    static void FillComboBox(ComboBox *combo, int itemType, int current = 0)
    {
        const QList<Value> found = values(itemType);
        combo->clear();
        combo->addItem(u"-"_s, 0);
        for (const Value &value : found)
            combo->addItem(value.name, value.id);
        combo->setCurrentIndex(qMax(0, combo->findData(current)));
    }

    // Adds a value and returns the key of its row. Throws KAccountingError for an empty name or one that the type already has.
    static int addValue(int itemType, const QString &name, int database = 0);
    static void renameValue(int id, const QString &name, int database = 0);
    static void deleteValue(int id, int database = 0);
};
