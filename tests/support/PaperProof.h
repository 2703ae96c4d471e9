// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/SheetPages.h"
#include "suite/accounting/reports/ReportOutput.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// A paper as others read it: its PDF, by the programs that open one.
class PaperProof
{
public:
    PaperProof(const PaperSheet &sheet, SheetPages::Size size, const Letterhead &office = {})
        : m_pages({sheet}, office, size)
    {
        (void)ReportOutput::writePagesPdf(m_pages, sheet.title, path());
    }

    QString path() const { return m_folder.filePath(u"paper.pdf"_s); }
    int pageCount() const { return m_pages.pageCount(); }

    // page: from 1; 0: all of them.
    QString text(int page = 0) const { return textOf(path(), page); }
    static QString textOf(const QString &path, int page = 0)
    {
        QStringList arguments{u"-layout"_s};
        if (page > 0)
            arguments << u"-f"_s << QString::number(page) << u"-l"_s << QString::number(page);
        QString text = QString::fromUtf8(output(u"pdftotext"_s, arguments + QStringList{path, u"-"_s})).normalized(QString::NormalizationForm_KC);
        return text.remove(QRegularExpression(u"[\\x{200c}\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]"_s));
    }

    // What a reader of squares finds on the first page.
    QString scanned() const
    {
        (void)output(u"pdftoppm"_s, {u"-r"_s, u"150"_s, u"-png"_s, u"-singlefile"_s, path(), m_folder.filePath(u"page"_s)});
        return QString::fromUtf8(output(u"zbarimg"_s, {u"--raw"_s, u"-q"_s, m_folder.filePath(u"page.png"_s)})).trimmed();
    }

    // Where a page is painted on, as parts of its width and height.
    QRectF inked(int page) const
    {
        const QImage image = picture(page);
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255))
                    found |= QRect(x, y, 1, 1);
            }
        }
        return {double(found.left()) / image.width(), double(found.top()) / image.height(), double(found.width()) / image.width(), double(found.height()) / image.height()};
    }

    // Dots of what is painted across a page that counts no more.
    int reddish(int page) const
    {
        const QImage image = picture(page);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += qRed(image.pixel(x, y)) - qGreen(image.pixel(x, y)) > 20;
        }
        return count;
    }

private:
    QImage picture(int page) const
    {
        constexpr double scale = 0.2;
        QImage image((m_pages.paperSize() * scale).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(scale, scale);
        m_pages.paint(painter, page);
        return image;
    }

    static QByteArray output(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished();
        return process.readAllStandardOutput();
    }

    QTemporaryDir m_folder;
    SheetPages m_pages;
};
