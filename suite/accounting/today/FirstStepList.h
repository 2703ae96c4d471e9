// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/sql/KSql.h"

#include <QList>
#include <QString>

#include <functional>

class OfficeSettings;
class QWidget;

// One of the things that an office does before its days begin.
struct FirstStep
{
    QString id; // plain English, unique
    int place = 0;
    QString title;
    QString line; // what it is good for, in one sentence
    // Who may take it; others do not see it. An empty form: everybody.
    QString form = {};
    KSecurity::Right right = KSecurity::Write;
    // Whether it was taken, by one of the two: a condition on the tables, "EXISTS (SELECT ...)", or the settings with that section.
    KSql rows = {};
    QString section = {};
    std::function<bool(const OfficeSettings &settings)> isSet = {};
    // Leads to where it is done.
    std::function<void(QWidget *parent)> open;
    // An office that has taken it is at work, and needs to be led no more.
    bool begins = false;
};

// How far an office is with them.
struct TZACCOUNTINGDATA_EXPORT FirstStepState
{
    struct Step
    {
        FirstStep step;
        bool isDone = false;
    };

    QList<Step> steps; // that the user may take, in their order
    bool hasBegun = false;

    int doneCount() const;
    // The first one that was not taken; -1: all were.
    qsizetype next() const;
};

// The steps of this program. Each part of the suite enters its own, the module while it is loaded.
class TZACCOUNTINGDATA_EXPORT FirstStepList
{
public:
    // Replaces one of the same id.
    static void enter(FirstStep step);
    static void remove(const QString &id);
    // For the user who is logged in, with two statements, however many steps there are. Throws CMySQLException.
    static FirstStepState read(int database = 0);
};
