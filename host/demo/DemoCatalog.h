// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

// The demo office's reference data: car catalog, input parameters, notary tariffs.
class DemoCatalog
{
public:
    // A model of the catalog, with what a car of it is like.
    struct Model
    {
        int brand = 0;
        int model = 0;
        QList<int> classes;
        double price = 0; // of a new one, in rials
        int cylinders = 4;
        bool isPickup = false;
        int country = 0; // key of an item
    };

    struct Item
    {
        int key = 0;
        QString name;
    };

    // Writes them into empty tables, with keys from 1.
    DemoCatalog(int userID, const QDateTime &created, int database = 0);

    const QList<Model> &models() const { return m_models; }
    // The items of a type (CTblItems::type...), in the order of their keys.
    QList<Item> items(int type) const { return m_items.value(type); }

private:
    void writeItems(int database);
    void writeCars(int userID, const QDateTime &created, int database);
    static void writeTariffs(const QDateTime &created, int database);
    int countryOf(QStringView maker) const;

    QList<Model> m_models;
    QHash<int, QList<Item>> m_items;
};
