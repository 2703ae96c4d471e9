// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImportDesk.h"

#include "auto/platform/ModulePlatform.h"
#include "auto/catalog/CatalogImporter.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace {

using CatalogImport::Trouble;

QString troubleText(Trouble trouble)
{
    switch (trouble) {
    case Trouble::TooLarge:
        return QStringLiteral("این فایل بزرگ‌تر از اندازه مجاز (یک مگابایت) است.");
    case Trouble::TooManyLines:
        return QStringLiteral("این فایل بیش از %1 سطر دارد.").arg(CatalogImport::maxLines);
    case Trouble::NoEntries:
        return QStringLiteral("در این فایل هیچ نوع خودرویی نیست.");
    case Trouble::NotText:
        return QStringLiteral("این سطر متن خوانا (UTF-8) نیست.");
    case Trouble::TooManyColumns:
        return QStringLiteral("این سطر بیش از سه ستون (نوع، مدل و تیپ) دارد.");
    case Trouble::BrandMissing:
        return QStringLiteral("نوع خودرو در این سطر خالی است.");
    case Trouble::ModelMissing:
        return QStringLiteral("این سطر تیپ دارد، اما مدل ندارد.");
    case Trouble::NameTooLong:
        return QStringLiteral("نامی در این سطر بیش از %1 حرف دارد.").arg(CatalogImport::longestName);
    case Trouble::None:
        break;
    }
    return {};
}

QString warningText(const CatalogImport::Parsed &parsed)
{
    const QString text = QStringLiteral("فهرست خوانده نشد و چیزی اضافه نشد.\n") + troubleText(parsed.trouble);
    return parsed.line == 0 ? text : text + QStringLiteral("\nسطر : %1").arg(parsed.line);
}

// Devices, pipes and folders are no lists; never more than the bound is taken in.
bool readBounded(const QString &path, QByteArray *data)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    *data = file.read(CatalogImport::maxBytes + 1);
    return file.error() == QFileDevice::NoError;
}

QString countsText(const CatalogImport::Plan &plan)
{
    return QStringLiteral("%1 نوع خودرو، %2 مدل و %3 تیپ").arg(plan.brands.size()).arg(plan.models.size()).arg(plan.classes.size());
}

CatalogImport::Plan planNow(const CatalogImport::Parsed &parsed)
{
    const KWaitCursor waiting;
    return CatalogImport::plan(parsed.entries, CatalogImporter::known());
}

}

QString CatalogImportDesk::startingSetFolder()
{
    return QDir(ModulePlatform::moduleFolder()).filePath(QStringLiteral("CarCatalog"));
}

QString CatalogImportDesk::askForFile(QWidget *parent)
{
    QFileDialog dialog(parent, QStringLiteral("فایل فهرست خودروها را انتخاب کنید"));
    dialog.setDirectory(startingSetFolder());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({QStringLiteral("فهرست خودروها (*.tsv *.txt)"), QStringLiteral("همه فایل‌ها (*)")});
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool CatalogImportDesk::importFile(const QString &path, QWidget *parent)
{
    QByteArray data;
    if (!readBounded(path, &data)) {
        g_pDlgWarning->Show(QStringLiteral("فایل فهرست خودروها باز نشد."), parent);
        return false;
    }
    const CatalogImport::Parsed parsed = CatalogImport::parse(data);
    if (parsed.trouble != Trouble::None) {
        g_pDlgWarning->Show(warningText(parsed), parent);
        return false;
    }
    const CatalogImport::Plan plan = planNow(parsed);
    if (plan.isEmpty()) {
        g_pDlgMessage->Show(QStringLiteral("همه نام‌های این فایل از پیش در فهرست هست."), parent);
        return false;
    }
    const QString question = QStringLiteral("در این فایل %1 تازه هست. به فهرست اضافه شوند؟").arg(countsText(plan));
    if (g_pDlgYesNo->Ask(question, parent) == KMessageDialog::No)
        return false;
    const CatalogImport::Plan added = [&] {
        const KWaitCursor waiting;
        return CatalogImporter::add(parsed.entries, GetDBSetting()->GetUserID());
    }();
    g_pDlgMessage->Show(countsText(added) + QStringLiteral(" اضافه شد."), parent);
    return !added.isEmpty();
}
