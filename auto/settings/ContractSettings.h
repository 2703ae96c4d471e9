// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/figures/Commission.h"

#include <QList>
#include <QString>
#include <QStringList>

class OfficeSettings;

// Settings of the contract pages, shared by all users of the database (section "AutomobilContracts").
struct ContractSettings
{
    // What keeps settings from being saved.
    enum class Problem {
        None,
        SecondTierBelowFirst,
        ThirdTierBelowOthers
    };

    double taxPercent = 0;  // value-added tax on the commission, 0 to 100
    double dutyPercent = 0; // duty on the commission, 0 to 100
    CommissionTiers tiers;
    bool archiveDemands = false; // demands older than demandDays are archived
    int demandDays = 0;
    bool levySeparate = false; // settling proposes what a party pays plus its tax and duty, instead of what its document charges
    bool postPlan = false;     // the documents of instalment sales hold the price and the plan's interest as the buyer's debt
    double lateFeePercent = 0; // of an overdue instalment's rest, per day after the days of grace
    int lateFeeGrace = 0;      // days

    // A setting as it stands in Properties, and how users know it.
    struct Part
    {
        QString key;
        QString caption;
        QString text;
    };
    // Every setting, in the order in which they are written.
    QList<Part> parts() const;
    // Settings that mean something only together, by their keys.
    static QList<QStringList> keysTogether();
    // Where they stand in Properties.
    static QString section();
    // Of settings that were read with that section. Missing ones are 0.
    static ContractSettings of(const OfficeSettings &settings);
    // Throws CMySQLException.
    static ContractSettings load(int database = 0);
    // Writes all of them or none. Throws what requireRight throws.
    void save(int database = 0) const;
    // Throws KAccountingError when the current user may not change contracts, as the rights stand now: they may have been taken
    // away while the window was open.
    static void requireRight();

    // Equal ceilings are fine; a ceiling within 0.0001 of 0 counts as not set. The third ceiling is checked even when
    // the third tier is off.
    Problem check() const;
};
