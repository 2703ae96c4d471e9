// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImportDialogs.h"

#include "auto/platform/ModulePlatform.h"
#include "auto/catalog/CatalogImporter.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

using CatalogImport::Trouble;

QString troubleText(Trouble trouble)
{
    switch (trouble) {
    case Trouble::TooLarge:
        return u"این فایل بزرگ‌تر از اندازه مجاز (یک مگابایت) است."_s;
    case Trouble::TooManyLines:
        return u"این فایل بیش از %1 سطر دارد."_s.arg(CatalogImport::maxLines);
    case Trouble::NoEntries:
        return u"در این فایل هیچ نوع خودرویی نیست."_s;
    case Trouble::NotText:
        return u"این سطر متن خوانا (UTF-8) نیست."_s;
    case Trouble::TooManyColumns:
        return u"این سطر بیش از سه ستون (نوع، مدل و تیپ) دارد."_s;
    case Trouble::BrandMissing:
        return u"نوع خودرو در این سطر خالی است."_s;
    case Trouble::ModelMissing:
        return u"این سطر تیپ دارد، اما مدل ندارد."_s;
    case Trouble::NameTooLong:
        return u"نامی در این سطر بیش از %1 حرف دارد."_s.arg(CatalogImport::longestName);
    case Trouble::None:
        break;
    }
    return {};
}

QString warningText(const CatalogImport::Parsed &parsed)
{
    const QString text = u"فهرست خوانده نشد و چیزی اضافه نشد.\n"_s + troubleText(parsed.trouble);
    return parsed.line == 0 ? text : text + u"\nسطر : %1"_s.arg(parsed.line);
}

// Devices, pipes and folders are refused; never more than the bound is read.
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
    return u"%1 نوع خودرو، %2 مدل و %3 تیپ"_s.arg(plan.brands.size()).arg(plan.models.size()).arg(plan.classes.size());
}

CatalogImport::Plan planNow(const CatalogImport::Parsed &parsed)
{
    const KWaitCursor waiting;
    return CatalogImport::plan(parsed.entries, CatalogImporter::known());
}

}

QString CatalogImportDialogs::startingSetFolder()
{
    return QDir(ModulePlatform::moduleFolder()).filePath(u"CarCatalog"_s);
}

QString CatalogImportDialogs::askForFile(QWidget *parent)
{
    QFileDialog dialog(parent, u"فایل فهرست خودروها را انتخاب کنید"_s);
    dialog.setDirectory(startingSetFolder());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({u"فهرست خودروها (*.tsv *.txt)"_s, u"همه فایل‌ها (*)"_s});
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool CatalogImportDialogs::importFile(const QString &path, QWidget *parent)
{
    QByteArray data;
    if (!readBounded(path, &data)) {
        g_pDlgWarning->Show(u"فایل فهرست خودروها باز نشد."_s, parent);
        return false;
    }
    const CatalogImport::Parsed parsed = CatalogImport::parse(data);
    if (parsed.trouble != Trouble::None) {
        g_pDlgWarning->Show(warningText(parsed), parent);
        return false;
    }
    const CatalogImport::Plan plan = planNow(parsed);
    if (plan.isEmpty()) {
        g_pDlgMessage->Show(u"همه نام‌های این فایل از پیش در فهرست هست."_s, parent);
        return false;
    }
    const QString question = u"در این فایل %1 تازه هست. به فهرست اضافه شوند؟"_s.arg(countsText(plan));
    if (g_pDlgYesNo->Ask(question, parent) == KMessageDialog::No)
        return false;
    const CatalogImport::Plan added = [&] {
        const KWaitCursor waiting;
        return CatalogImporter::add(parsed.entries, GetDBSetting()->GetUserID());
    }();
    g_pDlgMessage->Show(countsText(added) + u" اضافه شد."_s, parent);
    return !added.isEmpty();
}
