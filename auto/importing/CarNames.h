// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportField.h"

// The names that rows of a file use of the catalog and of the lists of choices, as keys. Each is read once, when a row first asks.
class CarNames
{
public:
    explicit CarNames(int database = 0);
    ~CarNames();

    // Put keys in place of the texts in the columns iAutomobilType, iModel and iBrigade: a model of that brand, a class of that model.
    void settlePlace(ImportRow &row);
    // The same for a value of a kind of item (CTblItems).
    void settleItem(ImportRow &row, const QString &key, const QString &title, int itemType);

private:
    using Names = QHash<QString, qint32>; // by what makes names equal
    void readCatalog();
    const Names &items(int itemType);

    int m_database;
    bool m_catalogRead = false;
    Names m_brands;
    QHash<qint32, Names> m_models;  // by brand
    QHash<qint32, Names> m_classes; // by model
    QHash<int, Names> m_items;
};
