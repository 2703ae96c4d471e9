// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractFilingDialogs.h"

#include "auto/contracts/printing/ContractPrintingDialogs.h"
#include "auto/contracts/printing/FiledContract.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/conversion/PdfConversion.h"
#include "suite/utility/documents/FooterLine.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcFiling, "tzauto.filing")

// Empty for what the user did himself.
QString failureText(PdfConversion::Outcome outcome, int limitMilliseconds)
{
    switch (outcome) {
    case PdfConversion::Outcome::ProgramMissing:
        return u"برای ساختن PDF یک واژه‌پرداز لازم است که روی این رایانه پیدا نشد.\nبسته %1 (یا libreoffice-writer) را نصب نمایید."_s.arg(PdfConversion::package());
    case PdfConversion::Outcome::Failed:
        return u"واژه‌پرداز PDF قرارداد را نساخت و چیزی بایگانی نشد."_s;
    case PdfConversion::Outcome::TimedOut:
        return u"واژه‌پرداز پس از %1 ثانیه هنوز PDF را نساخته بود؛ متوقف شد و چیزی بایگانی نشد."_s.arg(limitMilliseconds / 1000);
    case PdfConversion::Outcome::Done:
    case PdfConversion::Outcome::Cancelled:
        break;
    }
    return {};
}

// The filled document, not shown; empty where the print failed, which has been told.
QString filledDocument(int contractID, QWidget *parent, const ContractPrinting::Places &places)
{
    QString document;
    ContractPrinting::Dialogs dialogs = contractPrintingDialogs(parent);
    dialogs.open = [&document](const QString &path) {
        document = path;
        return true;
    };
    return ContractPrinting(std::move(dialogs), places).print(contractID) ? document : QString();
}

// The PDF, under the name that it is filed by; empty: there is none, which has been told.
QString madePdf(const QString &document, const QString &name, QWidget *parent, const ContractFilingDialogs::Options &options)
{
    PdfConversion conversion{.document = document, .folder = QFileInfo(document).path()};
    if (!options.program.isEmpty())
        conversion.program = options.program;
    if (options.limitMilliseconds > 0)
        conversion.limitMilliseconds = options.limitMilliseconds;
    PdfConversion::Outcome outcome{};
    {
        const KWaitCursor wait;
        ReportProgressWindow progress(u"PDF قرارداد ساخته می‌شود..."_s, parent);
        outcome = conversion.run(progress.callback());
    }
    const QString failure = failureText(outcome, conversion.limitMilliseconds);
    if (!failure.isEmpty())
        g_pDlgWarning->Show(failure, parent);
    const QString path = QDir(conversion.folder).filePath(name);
    return outcome == PdfConversion::Outcome::Done && QFile::rename(conversion.pdfPath(), path) ? path : QString();
}

bool wantsAnother(const FiledContract::Paper &last, const FiledContract::Stamp &stamp, QWidget *parent)
{
    if (last.version == 0 || last.hash != stamp.hash)
        return true;
    const QString question = u"نسخه %1 همین قرارداد بایگانی شده است و قرارداد از آن پس تغییری نکرده است. نسخه دیگری بایگانی شود؟"_s.arg(last.version);
    return g_pDlgYesNo->Ask(question, parent) == KMessageDialog::Yes;
}

}

bool ContractFilingDialogs::run(int contractID, QWidget *parent, const Options &options)
{
    CTblAutomobilContracts contract;
    if (contractID <= 0 || !contract.IsRecordExist(u"iID"_s, contractID))
        return false;
    const FiledContract::Stamp stamp = FiledContract::stamp(contract);
    // Asked for before anything is made.
    if (options.program.isEmpty() && PdfConversion::installed().isEmpty()) {
        g_pDlgWarning->Show(failureText(PdfConversion::Outcome::ProgramMissing, 0), parent);
        return false;
    }
    if (!wantsAnother(FiledContract::last(contractID), stamp, parent))
        return false;
    const QString document = filledDocument(contractID, parent, options.places);
    if (document.isEmpty())
        return false;
    const QString failure = FooterLine::add(document, stamp.text, u"SHA-256 "_s + stamp.hash);
    if (!failure.isEmpty()) {
        qCWarning(lcFiling) << failure;
        g_pDlgWarning->Show(u"نسخه و اثر انگشت قرارداد در پای سند نوشته نشد و چیزی بایگانی نشد."_s, parent);
        return false;
    }
    const QString name = CTblFileDocs::safeFileName(u"قرارداد %1 نسخه %2.pdf"_s.arg(contract.m_iCode).arg(stamp.version));
    const QString pdf = madePdf(document, name, parent, options);
    if (pdf.isEmpty())
        return false;
    FiledContract::file(contractID, stamp, pdf);
    g_pDlgMessage->Show(u"نسخه %1 قرارداد با پرونده‌های عمومی آن بایگانی شد."_s.arg(stamp.version), parent);
    if (options.opens)
        KProcess::Execute(u"Explorer"_s, pdf);
    return true;
}
