// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeSettings.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString &onlyReadReason()
{
    static QString reason;
    return reason;
}

KSql settingsStatement(const QStringList &furtherSections)
{
    QList<KSql> sections;
    for (const OfficeSettings::Key &key : {OfficeSettings::closed, OfficeSettings::moneyUnit, OfficeSettings::naturalByMark, OfficeSettings::year})
        sections.append(KSql::quoted(key.section.toString()));
    for (const QString &section : furtherSections)
        sections.append(KSql::quoted(section));
    // Joined to a single row, so that the clock comes along even where nothing is stored.
    return KSql::formatted("SELECT NOW(),sSection,sKey,sValue FROM (SELECT 1) AS clock LEFT JOIN Properties ON sSection IN (%1)", KSql::joined(sections, ","));
}

}

void OfficeSettings::expect(const QStringList &furtherSections, int database)
{
    KReadAhead::expect(settingsStatement(furtherSections), database);
}

OfficeSettings OfficeSettings::read(const QStringList &furtherSections, int database)
{
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery(settingsStatement(furtherSections));
    OfficeSettings settings;
    settings.m_serverTime = temp.GetDateFieldValue(0);
    for (; temp.HasResultRow(); temp.MoveNextResult())
        settings.m_values.insert({temp.GetTextFieldValue(1), temp.GetTextFieldValue(2)}, temp.GetTextFieldValue(3));
    return settings;
}

QString OfficeSettings::stored(const Key &key) const
{
    return text(key.section.toString(), key.key.toString(), {});
}

bool OfficeSettings::isOn(const Key &key) const
{
    return stored(key).toInt() != 0;
}

bool OfficeSettings::isClosed() const
{
    return isOnlyRead() || isOn(closed);
}

void OfficeSettings::setOnlyRead(const QString &reason)
{
    onlyReadReason() = reason;
}

bool OfficeSettings::isOnlyRead()
{
    return !onlyReadReason().isEmpty();
}

void OfficeSettings::requireOpen() const
{
    if (isClosed())
        throw KAccountingError(closedMessage());
}

QString OfficeSettings::closedMessage()
{
    return isOnlyRead() ? onlyReadReason() : u"این پایگاه داده بسته شده است و تغییر آن ممکن نیست."_s;
}

bool OfficeSettings::isCatalogLocked() const
{
    return isOn(catalogLocked);
}

QString OfficeSettings::moneyUnitName() const
{
    return text(moneyUnit.section.toString(), moneyUnit.key.toString(), u"ریال"_s);
}

int OfficeSettings::moneyDecimals() const
{
    return std::clamp(stored(decimals).toInt(), 0, mostDecimals);
}

bool OfficeSettings::isNaturalPersonByMark() const
{
    return isOn(naturalByMark);
}

int OfficeSettings::fiscalYear() const
{
    const int stored = this->stored(year).toInt();
    return stored > 0 ? stored : GetShamsi(m_serverTime.date()).year;
}

QDateTime OfficeSettings::fiscalYearOpeningDate() const
{
    QDate day = QDate::fromString(stored(opening), Qt::ISODate);
    if (!day.isValid())
        day = ConvertToMiladi(fiscalYear(), 1, 1);
    return QDateTime(day, QTime(0, 0), Qt::UTC);
}

QDateTime OfficeSettings::fiscalYearClosingDate() const
{
    QDate day = QDate::fromString(stored(closing), Qt::ISODate);
    if (!day.isValid() || day < fiscalYearOpeningDate().date())
        day = shamsiYearEnd(fiscalYear());
    return QDateTime(day, QTime(0, 0), Qt::UTC);
}

QString OfficeSettings::fiscalYearRefusal(const QDate &day, const QString &what) const
{
    if (day < fiscalYearOpeningDate().date())
        return u"تاریخ %1 پیش از تاریخ افتتاحیه سال مالی است."_s.arg(what);
    const QDate last = fiscalYearClosingDate().date();
    if (day > last)
        return u"تاریخ %1 پس از پایان سال مالی %2 (%3) است."_s.arg(what).arg(fiscalYear()).arg(shamsiText(last));
    return {};
}

void OfficeSettings::requireInFiscalYear(const QDate &day, const QString &what) const
{
    const QString refusal = fiscalYearRefusal(day, what);
    if (!refusal.isEmpty())
        throw KAccountingError(refusal);
}

double OfficeSettings::number(const QString &section, const QString &key, double defaultValue) const
{
    bool isNumber = false;
    const double value = text(section, key, {}).toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}

int OfficeSettings::integer(const QString &section, const QString &key, int defaultValue) const
{
    bool isNumber = false;
    const int value = text(section, key, {}).toInt(&isNumber);
    return isNumber ? value : defaultValue;
}

QString OfficeSettings::text(const QString &section, const QString &key, const QString &defaultValue) const
{
    return m_values.value({section, key}, defaultValue);
}
