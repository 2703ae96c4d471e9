// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ReportProgress.h"

#include <QStringList>

#include <functional>

class KAccessDatabase;
class KAccessValueError;

// Writes the rows of the seasonal report into a copy of the tax authority's template. The copy is made aside in the target
// folder and takes its place when it is whole: an export that fails or is stopped leaves no file behind and does not touch what
// was there before.
class SeasonalExport
{
public:
    enum class Kind {
        Sales = 0,
        Purchases = 1
    };
    enum class Outcome {
        Done,
        TemplateMissing,
        CompanyEmpty, // the dealership's own details were never entered
        CopyFailed,   // a file of that name cannot be written to the folder
        DiskFull,     // there is no room for it
        Cancelled     // stopped by progress
    };

    // What the report window holds.
    struct Report
    {
        Kind kind = Kind::Sales;
        int season = 0; // index, 0 spring to 3 winter
        QString year;   // Shamsi, as typed
        int rowCount = 0;
        std::function<QStringList(int row)> cells; // the thirty texts of a row; asked once for each, in order
        // For a message about a value that the file does not take: what a row is about, and the titles of the thirty columns.
        std::function<QString(int row)> subject = {};
        QStringList titles = {};
    };

    // The folder of the template, the mapping and the helper; empty: the module's.
    explicit SeasonalExport(Report report, const QString &moduleFolder = {});

    // What can be checked before a folder is chosen: Done, TemplateMissing or CompanyEmpty. Throws CMySQLException.
    Outcome check() const;

    // Exports into the folder, replacing an earlier file of the same name. Progress gets the rows that stand in the file
    // and their number, often enough to keep windows alive. Throws KAccountingError (no Java, no helper, a value that the file
    // does not take, full disk), CMySQLException.
    Outcome run(const QString &folder, const ReportProgress &progress = {}) const;

    // Rule: "Foroosh_Fasly_1404_2.mdb" for the sales of the second season.
    static QString fileName(Kind kind, const QString &year, int season);

private:
    void write(const QString &path, const ReportProgress &progress) const;
    void writeRecords(KAccessDatabase &database, const QString &path) const;
    [[noreturn]] void refuse(const KAccessValueError &error, const QString &value) const;

    Report m_report;
    QString m_folder;
};
