// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ReportPainter.h"

#include <QByteArray>

class QPaintDevice;
class QPrinter;

// Writes a list report to its target. A file is written aside and takes its place when it is whole; until then, and also when
// progress asks to stop, what stood there before stays. False: stopped. Throws KAccountingError when the file cannot be written.
namespace ReportOutput {

[[nodiscard]] TZACCOUNTING_EXPORT bool writePdf(const ListReport &report, const QString &path, const ReportProgress &progress = {});
// Pages that are laid out; the title is the file's own.
[[nodiscard]] TZACCOUNTING_EXPORT bool writePagesPdf(const PaperPages &pages, const QString &title, const QString &path,
                                                     const ReportProgress &progress = {});
// The same without a file.
[[nodiscard]] TZACCOUNTING_EXPORT QByteArray pagesPdf(const PaperPages &pages, const QString &title);

// One sheet from right to left: the columns of the layout under a header row that stays in sight, numbers as numbers. A date
// stands twice: as the Shamsi text of the list, and in a column of its own behind the others as a date to calculate with.
[[nodiscard]] TZACCOUNTING_EXPORT bool writeSpreadsheet(const ListReport &report, const QString &path,
                                                        const ReportProgress &progress = {});

// Starts painting on a printer or page; throws KAccountingError when the device cannot be painted on.
TZACCOUNTING_EXPORT void begin(QPainter &painter, QPaintDevice &device);

// The printer's own range of pages is respected.
[[nodiscard]] TZACCOUNTING_EXPORT bool print(const ListReport &report, QPrinter &printer, const ReportProgress &progress = {});
[[nodiscard]] TZACCOUNTING_EXPORT bool printPages(const PaperPages &pages, const QString &title, QPrinter &printer,
                                                  const ReportProgress &progress = {});

}
