// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgSettings.h"

#include "host/administration/CDlgOfficeLogo.h"
#include "host/keeping/BackupFields.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "host/frame/HostLook.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/today/TodaySettings.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/crm/persons/CDlgAddCompanyProps.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const OfficeSettings::Key &key)
{
    return SettingsEdit::nameOf(key.section, key.key);
}

QList<SettingsEdit::Setting> twinSettings()
{
    QList<SettingsEdit::Setting> settings;
    for (const TwinSettings::Named &number : TwinSettings::all())
        settings.append({number.key.section.toString(), number.key.key.toString(), u"نپذیرفتن %1 تکراری"_s.arg(number.caption)});
    return settings;
}

QList<SettingsEdit::Setting> editedSettings()
{
    const auto setting = [](const OfficeSettings::Key &key, const QString &caption) {
        return SettingsEdit::Setting{key.section.toString(), key.key.toString(), caption};
    };
    return QList<SettingsEdit::Setting>{
               setting(OfficeSettings::moneyUnit, u"نام واحد پول"_s),
               setting(OfficeSettings::decimals, u"رقم‌های اعشار"_s),
               setting(OfficeSettings::year, u"سال مالی"_s),
               setting(OfficeSettings::opening, u"تاریخ افتتاح"_s),
               setting(OfficeSettings::closing, u"تاریخ پایان"_s),
               setting(OfficeSettings::catalogLocked, u"قفل فهرست خودروها"_s),
               setting(TodaySettings::unsettled, u"روزهای قرارداد تسویه نشده"_s),
               setting(TodaySettings::standing, u"روزهای خودروی مانده"_s),
               setting(OfficeSettings::closed, u"بسته بودن پایگاه داده"_s)}
    + twinSettings() + BackupFields::settings();
}

QString onOrOff(bool on)
{
    return on ? u"1"_s : u"0"_s;
}

std::optional<QString> shown(const QString &setting, const QVariant &value)
{
    const QString text = value.toString();
    if (setting == nameOf(OfficeSettings::opening) || setting == nameOf(OfficeSettings::closing))
        return shamsiText(QDate::fromString(text, Qt::ISODate));
    const bool isOfTwins = std::ranges::any_of(TwinSettings::all(), [&](const TwinSettings::Named &number) { return setting == nameOf(number.key); });
    if (isOfTwins || setting == nameOf(OfficeSettings::catalogLocked) || setting == nameOf(OfficeSettings::closed))
        return text.toInt() != 0 ? u"بله"_s : u"خیر"_s;
    return std::nullopt;
}

}

CDlgSettings::CDlgSettings(const DataFolder &folder, QWidget *parent)
    : CDlgSettings(folder, OfficeSettings::read(BackupFields::sections() + QStringList{TodaySettings::section(), TwinSettings::section()}), parent)
{
}

CDlgSettings::CDlgSettings(const DataFolder &folder, const OfficeSettings &settings, QWidget *parent)
    : KDialog(parent)
    , m_folder(folder)
    , m_wasClosed(settings.isClosed())
    , m_edit(settings, editedSettings(), {{nameOf(OfficeSettings::year), nameOf(OfficeSettings::opening), nameOf(OfficeSettings::closing)}})
{
    m_edit.setChangesClosedDatabase(m_wasClosed);
    setWindowTitle(u"تنظیمات"_s);
    build();
    load(settings);
    m_edit.remember([this] { write(); });
}

// What the office keeps cannot be changed in a closed database, but for its being closed.
void CDlgSettings::build()
{
    auto *page = new CardPage(760, this);
    const auto addOffice = [&](const QString &title, void (CDlgSettings::*place)(FormGrid *)) {
        FormGrid *grid = page->addForm(title);
        (this->*place)(grid);
        grid->parentWidget()->setEnabled(!m_wasClosed);
    };
    addOffice(u"نمایشگاه"_s, &CDlgSettings::placeCompany);
    addOffice(u"واحد پول"_s, &CDlgSettings::placeMoney);
    addOffice(u"سال مالی"_s, &CDlgSettings::placeFiscalYear);
    addOffice(u"نام خودرو"_s, &CDlgSettings::placeCatalog);
    addOffice(u"شماره‌های تکراری"_s, &CDlgSettings::placeTwins);
    addOffice(u"صفحه امروز"_s, &CDlgSettings::placeToday);
    m_backups = new BackupFields(m_folder, GetDBSetting()->IsAdmin(), m_wasClosed, page);
    placeDatabase(page->addForm(u"پایگاه داده"_s));
    placeLook(page->addForm(u"نمایش"_s));
    setContent(page, createButtons());
    HistoryButton::addTo(this, footer(), u"Properties:Database"_s, 0);
}

void CDlgSettings::placeCompany(FormGrid *grid)
{
    const auto add = [&](const QString &caption, const std::function<void()> &open) {
        auto *button = new QPushButton(caption, this);
        button->setAccessibleName(button->text());
        button->setAutoDefault(false);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, open);
        grid->addCell(button, 2);
    };
    add(u"مشخصات نمایشگاه"_s, [this] { CDlgAddCompanyProps(this).exec(); });
    add(u"نشان نمایشگاه"_s, [this] { CDlgOfficeLogo(this).exec(); });
}

void CDlgSettings::placeMoney(FormGrid *grid)
{
    m_unit = new KEdit(this);
    m_unit->setMaxLength(20);
    m_decimals = new KDropDown(this);
    for (int decimals = 0; decimals <= OfficeSettings::mostDecimals; ++decimals)
        m_decimals->addItem(QString::number(decimals));
    addLabelled(grid, u"نام واحد پول :"_s, m_unit);
    addLabelled(grid, u"رقم‌های اعشار :"_s, m_decimals);
}

void CDlgSettings::placeFiscalYear(FormGrid *grid)
{
    m_fiscalYear = new KEdit(KEdit::Kind::Integer, this);
    m_fiscalYear->setRange(firstShamsiYear, lastShamsiYear);
    m_fiscalYear->setMaxLength(4);
    m_opening = new KDateEdit(this);
    m_closing = new KDateEdit(this);
    // A year's books are those of its days unless the office says otherwise.
    connect(m_fiscalYear, &KEdit::numberEdited, this, [this](double typed) {
        const int year = static_cast<int>(typed);
        if (const QDate first = ConvertToMiladi(year, 1, 1); first.isValid()) {
            m_opening->setDate(first);
            m_closing->setDate(shamsiYearEnd(year));
        }
    });
    addLabelled(grid, u"سال مالی :"_s, m_fiscalYear);
    addLabelled(grid, u"تاریخ افتتاح :"_s, m_opening);
    addLabelled(grid, u"تاریخ پایان :"_s, m_closing);
}

void CDlgSettings::placeCatalog(FormGrid *grid)
{
    m_catalogLocked = new QCheckBox(u"فهرست خودروها قفل است (فقط انتخاب)"_s, this);
    m_catalogLocked->setAccessibleName(m_catalogLocked->text());
    grid->addCell(m_catalogLocked, 4);
}

void CDlgSettings::placeTwins(FormGrid *grid)
{
    for (const TwinSettings::Named &number : TwinSettings::all()) {
        auto *box = new QCheckBox(number.caption, this);
        box->setAccessibleName(u"نپذیرفتن %1 تکراری"_s.arg(number.caption));
        grid->addCell(box);
        m_refusedTwins.append(box);
    }
    auto *note = new QLabel(u"شماره‌ای که تیک دارد و در رکورد دیگری هست، جز از مدیر پذیرفته نمی‌شود؛ از بقیه هشدار داده می‌شود."_s, this);
    note->setWordWrap(true);
    LookFonts::applyHint(note);
    grid->addLine(note);
}

void CDlgSettings::placeToday(FormGrid *grid)
{
    const auto add = [&](const QString &caption) {
        auto *edit = new KEdit(KEdit::Kind::Integer, this);
        edit->setRange(0, TodaySettings::mostDays);
        addLabelled(grid, caption, edit, 2);
        return edit;
    };
    m_unsettledDays = add(u"قرارداد تسویه نشده پس از چند روز :"_s);
    m_standingDays = add(u"خودروی مانده پس از چند روز :"_s);
}

void CDlgSettings::placeDatabase(FormGrid *grid)
{
    m_closed = new QCheckBox(u"پایگاه داده بسته است (فقط مشاهده)"_s, this);
    m_closed->setAccessibleName(m_closed->text());
    auto *note = new QLabel(u"در پایگاه داده بسته هیچ ثبت، ویرایش یا حذفی انجام نمی‌شود."_s, this);
    note->setWordWrap(true);
    LookFonts::applyHint(note);
    grid->addCell(m_closed, 4);
    grid->addLine(note);
}

void CDlgSettings::placeLook(FormGrid *grid)
{
    m_look = new KDropDown(this);
    // In the order of HostLook::Choice.
    m_look->addItems({u"مانند سیستم"_s, u"روشن"_s, u"تیره"_s});
    m_look->setCurrentIndex(int(HostLook::choice()));
    addLabelled(grid, u"رنگ برنامه :"_s, m_look);
}

void CDlgSettings::load(const OfficeSettings &settings)
{
    m_unit->setText(settings.moneyUnitName());
    m_decimals->setCurrentIndex(settings.moneyDecimals());
    m_fiscalYear->setNumber(settings.fiscalYear());
    m_opening->setDateTime(settings.fiscalYearOpeningDate());
    m_closing->setDateTime(settings.fiscalYearClosingDate());
    m_catalogLocked->setChecked(settings.isCatalogLocked());
    m_unsettledDays->setNumber(TodaySettings::unsettledDays(settings));
    m_standingDays->setNumber(TodaySettings::standingDays(settings));
    for (qsizetype i = 0; i < m_refusedTwins.size(); ++i)
        m_refusedTwins.at(i)->setChecked(TwinSettings::isRefused(settings, TwinSettings::all().at(i).key));
    m_closed->setChecked(m_wasClosed);
    m_backups->load(settings);
}

bool CDlgSettings::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

bool CDlgSettings::validate()
{
    if (ConvertToStandard(m_unit->text()).isEmpty())
        return refuse(u"لطفا نام واحد پول را وارد نمایید."_s, m_unit);
    if (!m_fiscalYear->isEntryValid() || m_fiscalYear->text().isEmpty())
        return refuse(u"لطفا سال مالی را درست وارد نمایید."_s, m_fiscalYear);
    if (!m_opening->isEntryValid() || !m_opening->dateTime().isValid())
        return refuse(u"لطفا تاریخ افتتاح سال مالی را درست وارد نمایید."_s, m_opening);
    if (!m_closing->isEntryValid() || !m_closing->dateTime().isValid())
        return refuse(u"لطفا تاریخ پایان سال مالی را درست وارد نمایید."_s, m_closing);
    if (m_closing->date() < m_opening->date())
        return refuse(u"تاریخ پایان سال مالی پیش از تاریخ افتتاح آن است."_s, m_closing);
    for (KEdit *days : {m_unsettledDays, m_standingDays}) {
        if (!days->isEntryValid() || days->text().isEmpty())
            return refuse(u"لطفا شمار روزها را از 0 تا %1 وارد نمایید."_s.arg(TodaySettings::mostDays), days);
    }
    return true;
}

void CDlgSettings::write()
{
    const auto set = [this](const OfficeSettings::Key &key, const QString &text) { m_edit.setText(key.section, key.key, text); };
    set(OfficeSettings::closed, onOrOff(m_closed->isChecked()));
    if (m_wasClosed)
        return;
    set(OfficeSettings::moneyUnit, ConvertToStandard(m_unit->text()));
    set(OfficeSettings::decimals, QString::number(m_decimals->currentIndex()));
    set(OfficeSettings::year, QString::number(m_fiscalYear->integer()));
    set(OfficeSettings::opening, m_opening->date().toString(Qt::ISODate));
    set(OfficeSettings::closing, m_closing->date().toString(Qt::ISODate));
    set(OfficeSettings::catalogLocked, onOrOff(m_catalogLocked->isChecked()));
    set(TodaySettings::unsettled, QString::number(m_unsettledDays->integer()));
    set(TodaySettings::standing, QString::number(m_standingDays->integer()));
    for (qsizetype i = 0; i < m_refusedTwins.size(); ++i)
        set(TwinSettings::all().at(i).key, onOrOff(m_refusedTwins.at(i)->isChecked()));
    m_backups->write(m_edit);
}

QWidget *CDlgSettings::fieldOf(const QString &setting) const
{
    if (QWidget *field = m_backups->fieldOf(setting))
        return field;
    for (qsizetype i = 0; i < m_refusedTwins.size(); ++i) {
        if (setting == nameOf(TwinSettings::all().at(i).key))
            return m_refusedTwins.at(i);
    }
    const QHash<QString, QWidget *> fields{{nameOf(OfficeSettings::moneyUnit), m_unit},
                                           {nameOf(OfficeSettings::decimals), m_decimals},
                                           {nameOf(OfficeSettings::year), m_fiscalYear},
                                           {nameOf(OfficeSettings::opening), m_opening},
                                           {nameOf(OfficeSettings::closing), m_closing},
                                           {nameOf(OfficeSettings::catalogLocked), m_catalogLocked},
                                           {nameOf(TodaySettings::unsettled), m_unsettledDays},
                                           {nameOf(TodaySettings::standing), m_standingDays}};
    return fields.value(setting, m_closed);
}

bool CDlgSettings::OnOK()
{
    if (!m_wasClosed && !validate())
        return false;
    if (const QString problem = m_backups->problem(); !problem.isEmpty()) {
        g_pDlgWarning->Show(problem, this);
        return false;
    }
    const RowQuestions::Texts texts{.format = shown, .goTo = [this](const QString &setting) { fieldOf(setting)->setFocus(); }};
    if (RowQuestions::save(
            this, m_edit, texts, [this] { write(); }, [this] { m_backups->requireMayChange(m_edit); })
        != RowQuestions::Outcome::Saved)
        return false;
    m_backups->storeHere();
    setDefaultMoneyDecimals(GetDBSetting()->MoneyDecimals());
    if (const auto look = HostLook::Choice(m_look->currentIndex()); look != HostLook::choice())
        HostLook::choose(look);
    return true;
}
