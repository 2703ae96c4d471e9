// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrintingDialogs.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KProcess.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString warningText(ContractPrinting::Trouble trouble)
{
    switch (trouble) {
    case ContractPrinting::Trouble::TemplateMissing:
        return u"فایل نامه پیدا نشد.\nلطفا مسیر فایل را مشخص نمایید."_s;
    case ContractPrinting::Trouble::ProcessorMissing:
        return u"امکان مقدار دهی اولیه مایکروسافت ورد وجود ندارد!"_s;
    case ContractPrinting::Trouble::TemplateUnreadable:
        return u"فایل ورد پیدا نشد."_s;
    case ContractPrinting::Trouble::NotSaved:
        return u"سند قرارداد در پوشه موقت ذخیره نشد."_s;
    case ContractPrinting::Trouble::NotOpened:
        return u"سند قرارداد ساخته شد، اما برنامه‌ای برای باز کردن آن پیدا نشد."_s;
    }
    return {};
}

// proposed: a file that Enter alone takes; empty: none.
QString askForTemplate(QWidget *parent, const QString &proposed = {})
{
    QFileDialog dialog(parent, u"فایل نامه را انتخاب کنید"_s);
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setFileMode(QFileDialog::ExistingFile);
    // The pattern is the part of the text in brackets.
    dialog.setNameFilter(u"فایل میاکروسافت وورد(*.docx)"_s);
    if (!proposed.isEmpty()) {
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        dialog.setSidebarUrls({QUrl::fromLocalFile(QFileInfo(proposed).path()), QUrl::fromLocalFile(documents), QUrl::fromLocalFile(QDir::homePath())});
        dialog.setDirectory(QFileInfo(proposed).path());
        dialog.selectFile(QFileInfo(proposed).fileName());
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}

ContractPrinting::Dialogs contractPrintingDialogs(QWidget *parent)
{
    return {[parent](ContractPrinting::Trouble trouble) { g_pDlgWarning->Show(warningText(trouble), parent); },
            [parent] { return askForTemplate(parent); },
            [](const QString &path) { return KProcess::Execute(u"Explorer"_s, path); },
            [parent](const QString &disagreement) {
                const QString question = disagreement + u"\nبا این حال چاپ شود؟"_s;
                return g_pDlgYesNo->Ask(question, parent) != KMessageDialog::No;
            },
            [parent](const QString &proposed) { return askForTemplate(parent, proposed); },
            [parent](const QString &notice) { g_pDlgMessage->Show(notice, parent); }};
}
