// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportOutput.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/reports/ReportSheet.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString &path)
{
    throw KAccountingError(
        u"نوشتن فایل «%1» ممکن نشد. لطفا پوشه و فضای خالی دیسک را بررسی نمایید."_s.arg(path));
}

// Pages first to last (from 0) on a device of that resolution.
bool paintPages(const PaperPages &pages, QPagedPaintDevice &device, double resolution, int first, int last,
                const ReportProgress &progress)
{
    QPainter painter;
    ReportOutput::begin(painter, device);
    const double scale = resolution / PaperPages::resolution;
    for (int page = first; page <= last; ++page) {
        if (progress && !progress(page - first, last - first + 1))
            return false;
        if (page > first)
            device.newPage();
        painter.save();
        painter.scale(scale, scale);
        pages.paint(painter, page);
        painter.restore();
    }
    return true;
}

bool writePages(const PaperPages &pages, const QString &title, QIODevice &device, const ReportProgress &progress)
{
    QPdfWriter writer(&device);
    writer.setResolution(PaperPages::resolution);
    writer.setPageLayout(pages.paper());
    writer.setTitle(title);
    writer.setCreator(u"TzAuto"_s);
    return paintPages(pages, writer, PaperPages::resolution, 0, pages.pageCount() - 1, progress);
}

}

void ReportOutput::begin(QPainter &painter, QPaintDevice &device)
{
    if (!painter.begin(&device))
        throw KAccountingError(u"چاپ ممکن نشد. لطفا چاپگر را بررسی نمایید."_s);
}

bool ReportOutput::writePdf(const ListReport &report, const QString &path, const ReportProgress &progress)
{
    ReportPainter pages(report);
    return pages.layOut(progress) && writePagesPdf(pages, report.shownTitle(), path, progress);
}

bool ReportOutput::writePagesPdf(const PaperPages &pages, const QString &title, const QString &path, const ReportProgress &progress)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        refuse(path);
    if (!writePages(pages, title, file, progress)) {
        file.cancelWriting();
        return false;
    }
    if (!file.commit())
        refuse(path);
    return true;
}

QByteArray ReportOutput::pagesPdf(const PaperPages &pages, const QString &title)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    (void)writePages(pages, title, buffer, {});
    return buffer.data();
}

bool ReportOutput::writeSpreadsheet(const ListReport &report, const QString &path, const ReportProgress &progress)
{
    switch (ReportSheet(report).write(path, progress)) {
    case ReportSheet::Written:
        return true;
    case ReportSheet::Stopped:
        return false;
    case ReportSheet::Failed:
        break;
    }
    refuse(path);
}

bool ReportOutput::print(const ListReport &report, QPrinter &printer, const ReportProgress &progress)
{
    ReportPainter pages(report);
    return pages.layOut(progress) && printPages(pages, report.shownTitle(), printer, progress);
}

bool ReportOutput::printPages(const PaperPages &pages, const QString &title, QPrinter &printer, const ReportProgress &progress)
{
    printer.setFullPage(true);
    printer.setPageLayout(pages.paper());
    printer.setDocName(title);
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), pages.pageCount()) : pages.pageCount();
    const int first = std::clamp(printer.fromPage(), 1, last);
    if (paintPages(pages, printer, printer.resolution(), first - 1, last - 1, progress))
        return true;
    printer.abort();
    return false;
}
