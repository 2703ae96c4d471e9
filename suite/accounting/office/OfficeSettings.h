// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <utility>

// What all users of a database share, and the server's clock, as one statement read them. It does not follow what is changed
// afterwards: a window reads it once when it is opened and passes it to its pages, and code that changes data reads it anew.
class TZACCOUNTINGDATA_EXPORT OfficeSettings
{
public:
    // Where a setting stands in Properties.
    struct Key
    {
        QStringView section;
        QStringView key;
    };
    static constexpr Key closed{u"Database", u"bClosed"};
    static constexpr Key catalogLocked{u"Database", u"bCatalogLocked"};
    static constexpr Key moneyUnit{u"Money", u"sUnit"};
    static constexpr Key decimals{u"Money", u"iDecimals"};
    static constexpr Key naturalByMark{u"Persons", u"bNaturalByMark"};
    static constexpr Key year{u"FiscalYear", u"iFiscalYear"};
    static constexpr Key opening{u"FiscalYear", u"dateOpening"};
    static constexpr Key closing{u"FiscalYear", u"dateClosing"};
    static constexpr int mostDecimals = 4;

    // furtherSections: sections of Properties that are read along, for number, text and integer. Throws CMySQLException.
    static OfficeSettings read(const QStringList &furtherSections = {}, int database = 0);
    // That it will be read (KReadAhead).
    static void expect(const QStringList &furtherSections = {}, int database = 0);

    // Now, by the server's clock. Wall-clock time held in Qt::UTC, as record sets hold it.
    QDateTime serverTime() const { return m_serverTime; }

    // A closed database is only read: every command that changes data is hidden or refused.
    bool isClosed() const;
    // Throws KAccountingError when the database is closed.
    void requireOpen() const;
    // What the refusal says.
    static QString closedMessage();
    // From now on this program changes no database, whatever that says of itself: it shows a copy, and this is what a refusal says.
    // Empty: as the database says, as at first.
    static void setOnlyRead(const QString &reason);
    static bool isOnlyRead();
    // Whether the car catalog is only read and chosen from.
    bool isCatalogLocked() const;

    // For example "ریال".
    QString moneyUnitName() const;
    // Decimals that amounts are shown with, 0 to mostDecimals.
    int moneyDecimals() const;
    // Whether a person's own mark (Persons.bNatural), and not the kind, makes it a natural one for the tax authority.
    bool isNaturalPersonByMark() const;

    // The Shamsi year whose documents are written now; the current Shamsi year until one is set.
    int fiscalYear() const;
    // The day on which the fiscal year's books open; the first day of fiscalYear() until one is set.
    QDateTime fiscalYearOpeningDate() const;
    // Its last day, on which documents are still written; the last day of fiscalYear() until one after the opening is set.
    QDateTime fiscalYearClosingDate() const;
    // Why a document of that day cannot be written in this fiscal year; empty when it can. what names the document, as "سند".
    QString fiscalYearRefusal(const QDate &day, const QString &what) const;
    // Throws KAccountingError with that refusal.
    void requireInFiscalYear(const QDate &day, const QString &what) const;

    // The stored value, or the default when there is none or it is not of that kind.
    double number(const QString &section, const QString &key, double defaultValue) const;
    int integer(const QString &section, const QString &key, int defaultValue) const;
    QString text(const QString &section, const QString &key, const QString &defaultValue) const;

private:
    OfficeSettings() = default;
    QString stored(const Key &key) const;
    bool isOn(const Key &key) const;

    QDateTime m_serverTime;
    QHash<std::pair<QString, QString>, QString> m_values; // by section and key
};
