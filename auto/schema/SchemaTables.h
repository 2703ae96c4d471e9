// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <span>

// The module's nine tables as they are first created, column by column. Names are part of the schema and keep their
// misspellings; several key columns hold other keys than they are named for (CarModels.iClassID: the brand,
// CarClasses.iBrandID: the model; AutomobilInformations.iAutomobilType, iModel, iBrigade: brand, model, class).
// What later versions add is with the steps, in SchemaUpgrade.cpp.
namespace SchemaTables {

enum class ColumnType {
    Key, // the automatic primary key
    Integer,
    Decimal,
    Text,
    DateTime,
    Flag
};

struct Column
{
    const char *name;
    ColumnType type;
    int length = 0; // of a text, in characters
};

struct Index
{
    const char *kind; // INDEX or UNIQUE INDEX
    const char *name;
    const char *column;
};

struct Table
{
    const char *name;
    std::span<const Column> columns;
    std::span<const Index> indexes;
};

extern const Table automobilInformations;
extern const Table automobilTariffs;
extern const Table automobilDemands;
extern const Table automobilContracts;
extern const Table automobilPayments;
extern const Table carBrands;
extern const Table carModels;
extern const Table carClasses;
extern const Table carYears;

QString dropStatement(const Table &table);
QString createStatement(const Table &table);

}
