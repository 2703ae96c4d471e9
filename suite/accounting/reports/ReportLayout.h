// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

// How a list stands on paper: what an office may arrange and keep under a name.
struct TZACCOUNTINGDATA_EXPORT ReportLayout
{
    struct Column
    {
        QString title;    // of the list's column, without the sort mark
        double share = 0; // percent of the paper's width; 0: fitted to what stands in it
        bool operator==(const Column &) const = default;
    };

    static constexpr double lowestFontSize = 6;
    static constexpr double highestFontSize = 20;

    QString title;                // may hold placeholders, as the texts
    QVector<Column> columns;      // in their order from the right; a column that is not named is not printed
    QMap<QString, QString> texts; // by corner; a corner that is not named shows the report's own text
    bool landscape = false;
    double fontSize = 9; // points
    bool operator==(const ReportLayout &) const = default;

    // "RightTop", "RightCenter", "RightBottom", "LeftTop", "LeftCenter", "LeftBottom".
    static const QStringList &corners();
    // Placeholders of a stored text: the report's own text, today's Shamsi date, the count.
    static QString ownTextMark();
    static QString dateMark();
    static QString countMark();
    // The text with its placeholders filled.
    static QString filled(const QString &text, const QString &own, const QString &date, const QString &count);

    QByteArray toJson() const;
    // Nothing for a text that is no layout; sizes outside their bounds are brought to the nearest one.
    static std::optional<ReportLayout> fromJson(const QByteArray &json);
};
