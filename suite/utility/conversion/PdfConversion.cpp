// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/conversion/PdfConversion.h"

#include "suite/utility/conversion/ProcessFamily.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcPdf, "tz.pdf")

constexpr int pdfPulseMilliseconds = 50;

// Written to its last line: a processor that dies half-way leaves a beginning.
bool isWhole(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(5) != "%PDF-")
        return false;
    file.seek(qMax(qint64{0}, file.size() - 1024));
    return file.readAll().contains("%%EOF");
}

QStringList arguments(const PdfConversion &conversion)
{
    const QString profile = QUrl::fromLocalFile(QDir(conversion.folder).filePath(u"profile"_s)).toString(QUrl::FullyEncoded);
    return {u"-env:UserInstallation="_s + profile, u"--headless"_s, u"--norestore"_s, u"--nolockcheck"_s, u"--nodefault"_s, u"--nofirststartwizard"_s,
            u"--convert-to"_s, u"pdf:writer_pdf_Export"_s, u"--outdir"_s, conversion.folder, conversion.document};
}

}

PdfConversion::Outcome PdfConversion::run(const Pulse &pulse) const
{
    if (program.isEmpty())
        return Outcome::ProgramMissing;
    QFile::remove(pdfPath());
    QProcess process;
    ProcessFamily::lead(process);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments(*this));
    if (!process.waitForStarted())
        return Outcome::ProgramMissing;
    const qint64 leader = process.processId();
    QElapsedTimer passed;
    passed.start();
    Outcome outcome = Outcome::Done;
    while (outcome == Outcome::Done && process.state() != QProcess::NotRunning && !process.waitForFinished(pdfPulseMilliseconds)) {
        const int milliseconds = int(passed.elapsed());
        if (milliseconds > limitMilliseconds)
            outcome = Outcome::TimedOut;
        else if (pulse && !pulse(milliseconds, limitMilliseconds))
            outcome = Outcome::Cancelled;
    }
    ProcessFamily::end(leader);
    process.waitForFinished();
    if (outcome != Outcome::Done) {
        QFile::remove(pdfPath());
        return outcome;
    }
    if (isWhole(pdfPath()))
        return Outcome::Done;
    qCWarning(lcPdf) << program << "ended with" << process.exitCode() << process.readAll().right(2000);
    QFile::remove(pdfPath());
    return Outcome::Failed;
}

QString PdfConversion::pdfPath() const
{
    return QDir(folder).filePath(QFileInfo(document).completeBaseName() + u".pdf"_s);
}

QString PdfConversion::installed()
{
    const QString found = QStandardPaths::findExecutable(u"soffice"_s);
    return found.isEmpty() ? QStandardPaths::findExecutable(u"libreoffice"_s) : found;
}

QString PdfConversion::package()
{
    return u"libreoffice-writer-nogui"_s;
}
