// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/sql/KSql.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include <functional>

// What the filters of a list ask for, by their keys; a filter that is not among them has the invalid value, and asks what its
// kind's 0 or empty value asks.
using KFilterValues = QHash<QString, QVariant>;

// A filter of a list: a row of the page's filter table. The rows stand in the order of their clauses; where each control is
// shown is set by its place.
struct TZACCOUNTINGDATA_EXPORT KListFilter
{
    // How the filter is entered, and the type of its value.
    enum class Kind {
        Person,    // a person's key, 0: any
        Choice,    // drop-down; the value of the chosen entry
        Date,      // the day as a QDateTime, invalid unless the field's box is ticked; the time of day does not count
        PlainDate, // the same without a box: invalid while the field is empty
        Text,      // as it is typed
        Number,    // whole number, 0 and above
        Amount,    // money, 0 and above
        Flag,      // bool; the label is the caption of the check box
        Always     // no control and no value: the clause is always asked
    };

    enum Option {
        HiddenInSelect = 1, // in select mode it is not shown and asks what it asks at first
        KeptByReset = 2,    // a reset leaves it as it is
        ReadByReset = 4,    // a reset reads its choices anew
        FindGoesHere = 8,   // Ctrl+F goes to its control
        NamesOfOffice = 16  // choices that the office enters, of any length: they do not widen the page
    };

    // An entry of a drop-down.
    struct Choice
    {
        QString text;
        int value = 0;
    };

    using Choices = std::function<QList<Choice>()>;

    // Cell of its label in the grid of the filter box, or of its check box; the control stands behind the label. Without a place
    // the control exists but is not shown.
    struct Place
    {
        int row = -1;
        int column = 0;
        int span = 1; // cells of the control
    };

    // The clause of a value, beginning with " AND "; empty when nothing is asked. userID: the user who is searching.
    using Clause = std::function<KSql(const QVariant &value, int userID)>;

    // Plain English, unique in the list: code and tests name the filter by it. Two whose keys are from and to, or end in From
    // and To, are a range, which is refused when it ends before it begins.
    QString key;
    QString label;
    Kind kind = Kind::Always;
    Place place = {};
    Clause clause = {};
    QVariant initial = {}; // the value at first and after a reset; a new one is 0, empty or not ticked
    Choices choices = {};
    int maxLength = 0;           // of a text; 0: any
    QString accessibleName = {}; // where the label alone, such as "تا :", does not distinguish the control from another
    int options = 0;

    // The condition for KMySQL::m_filter: the clauses in their order, without the " AND " that the first one begins with.
    static KSql condition(const QList<KListFilter> &filters, const KFilterValues &values, int userID);
};
