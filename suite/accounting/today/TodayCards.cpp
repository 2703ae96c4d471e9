// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/today/TodayCards.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Entered
{
    QList<TodaySource> sources;
    QString figuresForm;
    QString incomeForm;
    TodayCards::Figures figures;
};

Entered &entered()
{
    static Entered all;
    return all;
}

}

KSql TodayFrame::begin(int daysFromToday) const
{
    return DateToSQL(QDateTime(today.addDays(daysFromToday), QTime(0, 0), Qt::UTC));
}

void TodayCards::enter(TodaySource source)
{
    remove(source.cards.constFirst().id);
    entered().sources.append(std::move(source));
}

void TodayCards::remove(const QString &firstCard)
{
    entered().sources.removeIf([&](const TodaySource &source) { return source.cards.constFirst().id == firstCard; });
}

QList<TodaySource> TodayCards::sources()
{
    return entered().sources;
}

QList<TodayCard> TodayCards::cards()
{
    QList<TodayCard> cards;
    for (const TodaySource &source : std::as_const(entered().sources))
        cards += source.cards;
    std::stable_sort(cards.begin(), cards.end(), [](const TodayCard &one, const TodayCard &other) { return std::pair(int(one.column), one.rank) < std::pair(int(other.column), other.rank); });
    return cards;
}

void TodayCards::setFigures(const QString &form, const QString &incomeForm, const Figures &figures)
{
    entered().figuresForm = form;
    entered().incomeForm = incomeForm;
    entered().figures = figures;
}

TodayCards::Figures TodayCards::figures()
{
    return entered().figures;
}

QString TodayCards::figuresForm()
{
    return entered().figuresForm;
}

QString TodayCards::incomeForm()
{
    return entered().incomeForm;
}

QString TodayCards::dayText(int daysFromToday)
{
    switch (daysFromToday) {
    case 0: return u"امروز"_s;
    case 1: return u"فردا"_s;
    case -1: return u"دیروز"_s;
    default: break;
    }
    return daysFromToday > 0 ? u"%1 روز دیگر"_s.arg(daysFromToday) : u"%1 روز گذشته"_s.arg(-daysFromToday);
}

TodayTone TodayCards::dayTone(int daysFromToday)
{
    if (daysFromToday < 0)
        return TodayTone::Overdue;
    return daysFromToday == 0 ? TodayTone::Due : TodayTone::Quiet;
}
