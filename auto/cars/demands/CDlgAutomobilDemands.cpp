// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/CDlgAutomobilDemands.h"

#include "auto/cars/demands/DemandArchiving.h"
#include "auto/cars/demands/DemandFilter.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/fields/CarChoices.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/editor/CDlgMatchingCars.h"
#include "auto/db/CTblAutomobilDemandJoins.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/LeftPlaceholders.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/importing/CDlgImport.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcDemands, "tz.auto.demands")

const QString phoneKey = u"phone"_s;

KListColumn::Cell personOf(KMySQL &record, int)
{
    return {{}, static_cast<const CTblAutomobilDemandJoins &>(record).m_iPersonID};
}

QString archiveRights()
{
    return u"AutomobilDemandArchive"_s;
}

}

CDlgAutomobilDemands::CDlgAutomobilDemands(QWidget *parent)
    : KListPage(u"تقاضا"_s, u"AutomobilDemands"_s, u"AutomobilDemands"_s, parent)
{
    Placeholders::expectLeft();
    CarChoices::expect();
    build();
}

CDlgAutomobilDemands::~CDlgAutomobilDemands() = default;

QList<KListColumn> CDlgAutomobilDemands::columnTable() const
{
    const auto noName = [](KMySQL &, int) { return KListColumn::Cell{u"-"_s}; };
    return {
        KListColumn::rowNumber(),
        {.key = u"code"_s, .title = u"کد تقاضا"_s, .width = 40, .sortKey = u"ad.iCode"_s, .column = u"ad.iCode"_s},
        {.key = u"person"_s, .title = u"نام متقاضی"_s, .alignment = Qt::AlignRight, .sortKey = u"ad.iPersonID"_s, .cell = noName, .lookup = u"ad.iPersonID"_s},
        {.key = u"type"_s, .title = u"نوع خودرو"_s, .alignment = Qt::AlignRight, .sortKey = u"ad.iAutomobilType"_s, .cell = noName, .lookup = u"ad.iAutomobilType"_s},
        {.key = u"yearFrom"_s, .title = u"از مدل"_s, .width = 50, .alignment = Qt::AlignRight, .sortKey = u"ad.iModelFrom"_s, .column = u"ad.iModelFrom"_s},
        {.key = u"yearTo"_s, .title = u"تا مدل"_s, .width = 50, .alignment = Qt::AlignRight, .sortKey = u"ad.iModelUpTo"_s, .column = u"ad.iModelUpTo"_s},
        {.key = u"amountFrom"_s, .title = u"از مبلغ"_s, .width = 50, .sortKey = u"ad.dAmountFrom"_s, .column = u"ad.dAmountFrom"_s},
        {.key = u"amountTo"_s, .title = u"تا مبلغ"_s, .width = 50, .sortKey = u"ad.dAmountUpTo"_s, .column = u"ad.dAmountUpTo"_s},
        {.key = u"referenceDate"_s, .title = u"تاریخ مراجعه"_s, .sortKey = u"ad.dateReference"_s, .column = u"ad.dateReference"_s},
        {.key = u"specialDescription"_s, .title = u"توضیحات ویژه"_s, .width = 150, .alignment = Qt::AlignRight, .sortKey = u"ad.sDescSpecial"_s, .column = u"ad.sDescSpecial"_s},
        {.key = u"archived"_s, .title = u"وضعیت بایگانی"_s, .width = 50, .alignment = Qt::AlignRight, .sortKey = u"ad.iArchiveUserID"_s, .column = u"ad.iArchiveUserID"_s, .show = KListColumn::yesOrDash},
        // The person's, until all rows are there.
        {.key = phoneKey, .title = u"تلفن"_s, .width = 60, .sortKey = u"p.sMobile"_s, .cell = personOf, .reads = {u"ad.iPersonID"_s}, .optional = true},
    };
}

bool CDlgAutomobilDemands::completesRows() const
{
    return list()->isColumnShown(phoneKey);
}

// The mobile number of who asks, or else the telephone.
void CDlgAutomobilDemands::completeRows(QVector<KListModel::Row> &rows)
{
    const int column = list()->columnOf(phoneKey);
    QList<int> persons;
    for (const KListModel::Row &row : std::as_const(rows))
        persons.append(row.cells.at(column).value.toInt());
    const QHash<int, QString> mobiles = KLookup::names({u"Persons"_s, u"iID"_s, u"sMobile"_s}, persons);
    const QHash<int, QString> telephones = KLookup::names({u"Persons"_s, u"iID"_s, u"sTel"_s}, persons);
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const QString mobile = mobiles.value(persons.at(row));
        rows[row].cells[column] = {mobile.isEmpty() ? telephones.value(persons.at(row)) : mobile};
    }
}

QList<KListFilter> CDlgAutomobilDemands::filterTable() const
{
    return demandFilters(CarChoices::types, CarChoices::colors);
}

std::vector<KListCommand> CDlgAutomobilDemands::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly | C::HiddenInSelect;
    KListCommand print = printCommand(C::HiddenInSelect | C::StartsGroup);
    print.caption = u"چاپ ليست"_s;
    return {
        {u"reset"_s, u"پيش فرض"_s, C::BesideSearch, [this] { resetFilter(); }, {}, u":/icons/refresh.svg"_s},
        {u"new"_s, u"جديد"_s, C::HiddenInReadOnly | C::HiddenInSelect, [this] { addDemand(); },
         QKeySequence(Qt::Key_Insert), u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ويرايش"_s, onRow, [this] { editDemand(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"show"_s, u"نمايش"_s, onRow, [this] { showDemand(list()->currentKey()); }, {}, u":/icons/show.svg"_s, Read},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        {u"archive"_s, u"بايگاني شد"_s, onRow, [this] { archiveDemand(); }, {}, u":/icons/archive.svg"_s, Access, u"AutomobilDemandArchive"_s},
        print,
        {u"import"_s, u"ورود از فایل"_s, C::HiddenInReadOnly | C::HiddenInSelect, [this] { importFile(); }, {}, u":/icons/table.svg"_s, Write},
        {u"matchingCars"_s, u"خودروهای مناسب"_s, C::NeedsRow | C::StartsGroup,
         [this] { CDlgMatchingCars::Show(list()->currentKey(), this); }, QKeySequence(Qt::CTRL | Qt::Key_M),
         u":/icons/search.svg"_s, Access, u"AutomobilInformations"_s},
        {u"carList"_s, u"گالري اتومبيل"_s, C::NeedsRow | C::HiddenInSelect, [this] { CDlgAutomobilInformations::ShowForDemand(list()->currentKey()); }, {}, u":/icons/car.svg"_s, Access, u"AutomobilInformations"_s},
    };
}

KListTraits CDlgAutomobilDemands::traits() const
{
    KListTraits traits;
    traits.lowestRowLimit = 0;
    traits.hasPlaceholders = true;
    traits.makePerson = personFilter();
    traits.emptyIcon = u":/icons/search.svg"_s;
    traits.emptyText = u"هنوز تقاضایی ثبت نشده است."_s;
    return traits;
}

// Not requested by the user: without the archiving right nothing is shown, and a failure is retried at the next opening.
void CDlgAutomobilDemands::opening()
{
    if (isReadOnly())
        return;
    LeftPlaceholders::remove();
    if (!KSecurity::IsGranted(archiveRights(), KSecurity::Access))
        return;
    try {
        DemandArchiving::archiveOldOnes(GetDBSetting()->GetUserID());
    } catch (const CMySQLException &error) {
        // What became of an earlier save must be told, whoever comes upon it.
        if (error.category() == CMySQLException::Category::SavedAfterAll || error.category() == CMySQLException::Category::OutcomeUnknown)
            throw;
        qCWarning(lcDemands).noquote() << KErrorText::logText(std::current_exception());
    }
}

std::unique_ptr<KMySQL> CDlgAutomobilDemands::makeRecords() const
{
    return std::make_unique<CTblAutomobilDemandJoins>();
}

std::unique_ptr<KMySQL> CDlgAutomobilDemands::makeRecord() const
{
    return std::make_unique<CTblAutomobilDemands>();
}

void CDlgAutomobilDemands::resetFilter()
{
    emptyList();
    KListPage::resetFilter();
}

void CDlgAutomobilDemands::importFile()
{
    if (!isChangeBlocked() && !isSelectMode() && CheckWriteSecurity() && CDlgImport::run(u"demands"_s, window()))
        refill();
}

void CDlgAutomobilDemands::addDemand()
{
    const KReadAhead reading;
    for (int time = 0; time < 2; ++time)
        OfficeSettings::expect(); // whether the database is closed, and its clock
    if (isChangeBlocked() || isSelectMode() || !CheckWriteSecurity())
        return;
    const int key = CDlgAddAutomobilDemand::NewDemand(this);
    refill();
    if (key != 0)
        selectListed(key);
}

void CDlgAutomobilDemands::editDemand()
{
    const int key = list()->currentKey();
    const KReadAhead reading;
    CDlgAddAutomobilDemand::expectEdit(key);
    if (key <= 0 || isChangeBlocked() || isSelectMode() || !CheckModifySecurity())
        return;
    bool changed = false;
    if (CDlgAddAutomobilDemand::EditDemand(key, changed, this) || changed)
        refill();
}

void CDlgAutomobilDemands::showDemand(int key)
{
    if (key <= 0 || !CheckReadSecurity())
        return;
    bool changed = false;
    CDlgAddAutomobilDemand::ShowDemand(key, changed, this);
    if (changed)
        refill();
}

void CDlgAutomobilDemands::archiveDemand()
{
    static const KArchiveTexts texts{archiveRights(),
                                     u"شما اجازه بایگانی کردن تقاضا را ندارید."_s,
                                     u"این تقاضا قبلا بایگانی شده است."_s, u"بایگانی شد."_s};
    if (isSelectMode())
        return;
    archiveSelected(texts, [](KMySQL &demand) {
        CTblAutomobilDemands::archive(demand.value(u"iCode").toInt(), GetDBSetting()->GetUserID());
    });
}

void CDlgAutomobilDemands::recordDeleted(int)
{
    refill();
}

void CDlgAutomobilDemands::activated(int key)
{
    showDemand(key);
}

void CDlgAutomobilDemands::emptyAreaActivated()
{
    addDemand();
}

KListReport CDlgAutomobilDemands::reportSpec() const
{
    const QString title = u"لیست تقاضاها"_s;
    const QString group = u"گالری اتومبیل"_s;
    return {title, group, title, {{u"RightTop"_s, group}}};
}
