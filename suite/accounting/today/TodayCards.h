// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/lists/KListRequest.h"
#include "suite/accounting/office/KSecurity.h"

#include <QDate>
#include <QList>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class OfficeSettings;

// What matters today, as the first page of the program tells it. Each part of the suite enters cards of its own; the page reads those that the
// user may see, away from the windows' thread.

// For whom and when the day is read.
struct TZACCOUNTINGDATA_EXPORT TodayFrame
{
    QDate today; // by the server's clock
    qint32 userID = 0;
    int decimals = 0;      // of the money unit
    int unsettledDays = 7; // a contract that is owed for longer is told
    int standingDays = 45; // and a car that stands for longer
    bool tellsIncome = false; // the user may see what the office earns and spends
    int database = 0;
    // As they were read along, with the sections that the sources name.
    std::shared_ptr<const OfficeSettings> settings = {};

    // The beginning of that day, as a literal.
    KSql begin(int daysFromToday) const;
};

// How much a line or a card asks for: the ground of its chip and of its count.
enum class TodayTone {
    Quiet,
    Info,
    Good,
    Due,
    Overdue
};

struct TodayLine
{
    QString table; // of RecordWindows: the record that it opens; empty: none
    qint32 key = 0;
    QString name;
    QString line;
    std::optional<double> amount = {}; // in the money unit
    QString chip;
    TodayTone tone = TodayTone::Quiet;
};

struct TodayContent
{
    static constexpr int mostLines = 5;

    qint64 count = 0; // of all that the list behind the card shows
    TodayTone tone = TodayTone::Quiet;
    QList<TodayLine> lines; // the most urgent ones
    QString extent;         // what was looked at, where that is not all; said beside the count
    // Opens all of them (RecordWindows::openList); an empty table: there is no list.
    QString listTable;
    KListRequest request;
};

struct TodayCard
{
    // Of the page, from its leading side.
    enum Column : int {
        Money = 0,
        People = 1,
        Figures = 2
    };

    QString id; // plain English, unique
    QString title;
    QString icon;
    Column column = Money;
    int rank = 0;           // within the column, from above
    QString emptyText = {}; // what the card says beside its title while nothing is due; empty: it is not shown then
    QString countText = {}; // of its chip at the head of the page, with %1: "%1 قسط معوق"; empty: none
};

// What is read together: one card, or several that the same statement tells.
struct TodaySource
{
    QString form; // of KSecurity: without that right there are no cards, and nothing is read for them; empty: everybody's
    KSecurity::Right right = KSecurity::Read;
    QStringList alsoRead = {}; // further forms that it tells of, which must be readable too
    QList<TodayCard> cards;
    QString settingsSection = {}; // of Properties, that it needs; empty: none
    // The contents of the cards, in their order. Runs on a thread without windows, with one statement whatever the office holds. Throws
    // CMySQLException.
    std::function<QList<TodayContent>(const TodayFrame &frame)> read;
};

// The months' figures: the running one and the five before it, the newest first.
struct TodayFigures
{
    struct Month
    {
        QString name; // "آذر"
        int contracts = 0;
        double amount = 0;     // of the contracts
        double commission = 0; // before tax and duty
        int carsIn = 0;
        int carsOut = 0;
    };

    std::array<Month, 6> months;
    // Of the running month, by day from its first to today, each day with those before it; empty for whom they are not told.
    QList<double> income;
    QList<double> expenses;
};

class TZACCOUNTINGDATA_EXPORT TodayCards
{
public:
    // Replaces those with the same first card.
    static void enter(TodaySource source);
    static void remove(const QString &firstCard);
    // As they were entered.
    static QList<TodaySource> sources();
    // The cards of all sources by column and rank.
    static QList<TodayCard> cards();

    using Figures = std::function<TodayFigures(const TodayFrame &frame)>;
    // Read for whoever may read the form; an empty function: nobody tells any. Income and expenses for whoever may open incomeForm.
    static void setFigures(const QString &form, const QString &incomeForm, const Figures &figures);
    static Figures figures();
    static QString figuresForm();
    static QString incomeForm();

    // Words for a day that is so far away: "امروز", "فردا", "۳ روز دیگر", "۱۲ روز گذشته" with ASCII digits.
    static QString dayText(int daysFromToday);
    // Overdue before today, due on it, quiet behind it.
    static TodayTone dayTone(int daysFromToday);
};
