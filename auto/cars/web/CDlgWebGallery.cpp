// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/CDlgWebGallery.h"

#include "auto/cars/web/GalleryFolder.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/cars/web/PublicCondition.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/waiting/LongWaiting.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/FolderChoice.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/values/KSettings.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString carForm = u"AutomobilInformations"_s;
constexpr int notArchived = 1; // in the list's choice of archive states

QString folderKey()
{
    return u"sFolder%1"_s.arg(GetDBSetting()->GetUserID());
}

QString megabytes(qint64 bytes)
{
    return QString::number(double(bytes) / (1024 * 1024), 'f', 1);
}

}

CDlgWebGallery::CDlgWebGallery(QWidget *parent)
    : CDlgWebGallery(OfficeSettings::read(GallerySettings::sections()), parent)
{
}

CDlgWebGallery::CDlgWebGallery(const OfficeSettings &settings, QWidget *parent)
    : KDialog(parent)
    , m_edit(settings, GallerySettings::edited())
    , m_kept(GallerySettings::of(settings))
    , m_moneyUnit(settings.moneyUnitName())
    , m_mayChange(!settings.isClosed() && !OfficeSettings::isOnlyRead() && KSecurity::IsGranted(carForm, KSecurity::Modify))
{
    SetSettingName(u"WebGallery\\Window"_s);
    setWindowTitle(u"خروجی وب"_s);
    setAsksBeforeDropping(false); // it changes no record, and the folder is remembered
    build();
    showCount();
    m_edit.remember([this] { entered().writeTo(m_edit); });
}

CDlgWebGallery::~CDlgWebGallery() = default;

void CDlgWebGallery::Show(QWidget *parent)
{
    if (!KSecurity::IsGranted(carForm, KSecurity::PrintList)) {
        g_pDlgWarning->Show(KSecurity::refusalText(carForm, KSecurity::PrintList), parent);
        return;
    }
    CDlgWebGallery(parent).exec();
}

void CDlgWebGallery::build()
{
    auto *page = new CardPage(620, this);
    buildCars(*page);
    buildPage(*page);
    buildFolder(*page);
    setContent(page, createButtons(u"نوشتن صفحه"_s, u"بستن"_s));
    HistoryButton::addTo(this, footer(), u"Properties:"_s + GallerySettings::section(), 0);
    (m_folder->text().isEmpty() ? m_folder : m_title)->setFocus();
}

QPushButton *CDlgWebGallery::addCommand(const QString &caption, const QString &icon, const std::function<void()> &run)
{
    auto *line = new QHBoxLayout;
    QPushButton *button = addButton(line, caption, icon);
    button->setParent(this);
    delete line;
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, this, [this, run] { KErrorBoundary::guarded(this, run); });
    return button;
}

void CDlgWebGallery::buildCars(CardPage &page)
{
    FormGrid *grid = page.addForm(u"خودروها"_s);
    m_count = new QLabel(this);
    m_count->setWordWrap(true);
    grid->addLine(m_count);
    grid->addCell(addCommand(u"دیدن این خودروها"_s, u":/icons/car.svg"_s, [this] { showCars(); }), 2);
}

void CDlgWebGallery::buildPage(CardPage &page)
{
    FormGrid *grid = page.addForm(u"صفحه"_s);
    const auto add = [&](const QString &label, const QString &text, int longest, int span) {
        auto *edit = new KEdit(this);
        edit->setMaxLength(longest);
        edit->setText(text);
        addLabelled(grid, label, edit, span);
        return edit;
    };
    m_title = add(u"عنوان صفحه :"_s, m_kept.title, GallerySettings::longestTitle, 3);
    m_prices = new KDropDown(this);
    m_prices->addItems({u"با قیمت"_s, u"توافقی"_s});
    m_prices->setCurrentIndex(m_kept.withPrices ? 0 : 1);
    addLabelled(grid, u"قیمت‌ها :"_s, m_prices);
    m_telephone = add(u"تلفن :"_s, m_kept.telephone, GallerySettings::longestTelephone, 1);
    m_address = add(u"آدرس :"_s, m_kept.address, GallerySettings::longestAddress, 3);
    grid->parentWidget()->setEnabled(m_mayChange);
}

void CDlgWebGallery::buildFolder(CardPage &page)
{
    FormGrid *grid = page.addForm(u"پوشه"_s);
    m_folder = new KEdit(KEdit::Kind::Code, this);
    setFolder(ReadSetting(GallerySettings::section(), folderKey(), QString()));
    addLabelled(grid, u"پوشه خروجی :"_s, m_folder, 3);
    grid->addCell(addCommand(u"انتخاب پوشه"_s, u":/icons/search.svg"_s, [this] { chooseFolder(); }));
    m_outcome = new QLabel(this);
    m_outcome->setWordWrap(true);
    grid->addLine(m_outcome);
    m_openPage = addCommand(u"باز کردن صفحه"_s, u":/icons/web.svg"_s, [this] { KProcess::Execute(u"Explorer"_s, m_page); });
    m_openFolder = addCommand(u"باز کردن پوشه"_s, u":/icons/show.svg"_s, [this] { KProcess::Execute(u"Explorer"_s, QFileInfo(m_page).absolutePath()); });
    grid->addCell(m_openPage);
    grid->addCell(m_openFolder);
    // In their places from the beginning, so that the window need not grow.
    m_outcome->setText(u"هنوز نوشته نشده است."_s);
    for (QPushButton *later : {m_openPage, m_openFolder})
        later->setEnabled(false);
}

void CDlgWebGallery::showCount()
{
    const int shown = PublicCars::shownCount();
    m_count->setText(shown > 0 ? u"%1 خودرو در صفحه نشان داده می‌شود: آنها که «%2» دارند و فروخته، بایگانی یا غیر فعال نیستند."_s.arg(shown).arg(PublicCondition::caption())
                               : u"هیچ خودرویی در صفحه نشان داده نمی‌شود. در منوی هر خودرو «%1» را بزنید."_s.arg(PublicCondition::caption()));
}

// The list is a page of the work area, so the window makes room for it.
void CDlgWebGallery::showCars()
{
    cancel();
    RecordWindows::openList(carForm, {.filters = {{u"web"_s, true}, {u"archive"_s, notArchived}}, .condition = "ai.bSold=0", .conditionText = u"فروخته نشده"_s});
}

QString CDlgWebGallery::folder() const
{
    return m_folder->plainText().trimmed();
}

void CDlgWebGallery::setFolder(const QString &folder)
{
    m_folder->setText(QDir::toNativeSeparators(folder));
}

QString CDlgWebGallery::outcome() const
{
    return m_outcome->text();
}

void CDlgWebGallery::chooseFolder()
{
    const QString chosen = ShowBrowseForFolder(this, u"پوشه خروجی وب"_s, folder());
    if (!chosen.isEmpty())
        setFolder(chosen);
    m_folder->setFocus();
}

GallerySettings CDlgWebGallery::entered() const
{
    return {m_title->text().simplified(), m_telephone->text().simplified(), m_address->text().simplified(), m_prices->currentIndex() == 0};
}

bool CDlgWebGallery::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

bool CDlgWebGallery::validate()
{
    if (entered().title.isEmpty())
        return refuse(u"لطفا عنوان صفحه را وارد نمایید."_s, m_title);
    if (folder().isEmpty())
        return refuse(u"لطفا پوشه خروجی را انتخاب نمایید."_s, m_folder);
    if (!QDir::isAbsolutePath(folder()))
        return refuse(u"نشانی پوشه را کامل وارد کنید، یا با «انتخاب پوشه» آن را برگزینید."_s, m_folder);
    const QFileInfo place(folder());
    if (place.exists() && !place.isDir())
        return refuse(u"«%1» پوشه نیست."_s.arg(folder()), m_folder);
    if (!QFileInfo(QFileInfo(QDir::cleanPath(folder())).path()).isDir())
        return refuse(u"پوشه‌ای که «%1» باید در آن ساخته شود پیدا نشد."_s.arg(folder()), m_folder);
    return PublicCars::shownCount() > 0
        || g_pDlgYesNo->Ask(u"هیچ خودرویی در صفحه نشان داده نمی‌شود. صفحه بدون خودرو نوشته شود؟"_s, this) == KMessageDialog::Yes;
}

// What another desk has changed meanwhile is asked about like any other setting.
bool CDlgWebGallery::keepSettings()
{
    if (!m_mayChange)
        return true;
    const RowQuestions::Texts texts{.format = [](const QString &setting, const QVariant &value) -> std::optional<QString> {
        if (setting != SettingsEdit::nameOf(GallerySettings::section(), u"bPrices"))
            return std::nullopt;
        return value.toInt() != 0 ? u"با قیمت"_s : u"توافقی"_s;
    }};
    if (RowQuestions::save(this, m_edit, texts, [this] { entered().writeTo(m_edit); }) != RowQuestions::Outcome::Saved)
        return false;
    // The office's, where the other desk's was taken.
    m_kept = GallerySettings::of(OfficeSettings::read(GallerySettings::sections()));
    m_title->setText(m_kept.title);
    m_telephone->setText(m_kept.telephone);
    m_address->setText(m_kept.address);
    m_prices->setCurrentIndex(m_kept.withPrices ? 0 : 1);
    return true;
}

bool CDlgWebGallery::OnOK()
{
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(carForm, KSecurity::PrintList))
        return refuse(KSecurity::refusalText(carForm, KSecurity::PrintList), m_folder);
    if (validate() && keepSettings())
        write();
    return false;
}

void CDlgWebGallery::write()
{
    const QString target = folder();
    const GalleryHead head{m_kept.title, m_kept.telephone, m_kept.address, m_moneyUnit, m_kept.withPrices};
    GalleryExport::Written written;
    try {
        LongWaiting::run(u"صفحه وب نوشته می‌شود."_s, this, [&](const ReportProgress &progress) { written = GalleryExport::write(target, head, progress); });
    } catch (const GalleryExport::Stopped &) {
        refuse(u"نوشتن متوقف شد. خروجی پیشین دست نخورده است."_s, m_folder);
        return;
    } catch (const GalleryFolder::Failure &failure) {
        refuse(QString::fromUtf8(failure.what()), m_folder);
        return;
    }
    WriteSetting(GallerySettings::section(), folderKey(), target);
    showWritten(written);
}

void CDlgWebGallery::showWritten(const GalleryExport::Written &written)
{
    m_page = written.page;
    QString text = u"نوشته شد: %1 خودرو، %2 تصویر، %3 مگابایت."_s.arg(QString::number(written.cars), QString::number(written.pictures), megabytes(written.bytes));
    if (written.unreadable > 0)
        text += u" %1 تصویر باز نشد و در صفحه نیست."_s.arg(written.unreadable);
    m_outcome->setText(text);
    m_openPage->setEnabled(true);
    m_openFolder->setEnabled(true);
    showCount();
    m_openPage->setFocus();
}
