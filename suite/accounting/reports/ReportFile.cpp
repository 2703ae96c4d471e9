// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportFile.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString reportsSection = u"Reports"_s;
const QString folderKey = u"Folder"_s;

}

QString ReportFile::name(const QString &report, const QString &suffix)
{
    static const QRegularExpression unfit(uR"([/\\:*?"<>|\x00-\x1f])"_s);
    QString name = report + u' ' + shamsiText(QDate::currentDate());
    return name.replace(unfit, u"-"_s) + u'.' + suffix;
}

QString ReportFile::ask(const QString &report, const QString &kind, const QString &suffix, QWidget *parent)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString folder = ReadSetting(reportsSection, folderKey, documents);
    QFileDialog dialog(parent, u"ذخیره"_s, QDir(folder).exists() ? folder : documents, u"%1 (*.%2)"_s.arg(kind, suffix));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(name(report, suffix));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString path = dialog.selectedFiles().constFirst();
    WriteSetting(reportsSection, folderKey, QFileInfo(path).absolutePath());
    return path;
}

void ReportFile::tellWritten(const QString &path, QWidget *parent)
{
    const QFileInfo file(path);
    if (g_pDlgMessage->ShowWritten(u"فایل «%1» ذخیره شد."_s.arg(file.fileName()), parent))
        KProcess::Execute(u"Explorer"_s, file.absolutePath());
}
