// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"

#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/fields/CarChoices.h"
#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/register/CarFilter.h"
#include "auto/cars/register/CarListColumns.h"
#include "auto/cars/register/CarWebCommand.h"
#include "auto/cars/register/gallery/CarGallery.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/web/CDlgWebGallery.h"
#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "auto/db/LeftPlaceholders.h"
#include "auto/editor/NewRecord.h"
#include "auto/lists/WordCells.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/importing/CDlgImport.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

// A wish of a demand: the filter and the demand's column.
constexpr std::pair<QStringView, QStringView> wishes[] = {
    {u"amountFrom", u"dAmountFrom"},
    {u"amountTo", u"dAmountUpTo"},
    {u"yearFrom", u"iModelFrom"},
    {u"yearTo", u"iModelUpTo"},
    {u"color", u"iColor"},
    {u"type", u"iAutomobilType"},
};

}

CDlgAutomobilInformations::CDlgAutomobilInformations(QWidget *parent)
    : KListPage(u"گالري اتومبيل"_s, u"AutomobilInformations"_s, u"AutomobilInformations"_s,
                parent)
    , m_web(std::make_unique<CarWebCommand>(this, [this] { return m_gallery && m_gallery->isShown(); }))
{
    Placeholders::expectLeft();
    CarChoices::expect();
    build();
    m_gallery = new CarGallery(this);
}

CDlgAutomobilInformations::~CDlgAutomobilInformations() = default;

int CDlgAutomobilInformations::SelectCar(QWidget *parent, int preselected)
{
    auto *page = new CDlgAutomobilInformations;
    page->setSelectMode(true, preselected);
    KDialogHolder holder(page, parent);
    holder.resize(1180, 680);
    holder.SetSettingName(u"AutomobilInformations\\Select"_s);
    return holder.exec() == QDialog::Accepted ? page->chosenKey() : 0;
}

void CDlgAutomobilInformations::ShowForDemand(int demandID)
{
    auto *page = new CDlgAutomobilInformations;
    page->setDemand(demandID);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

QList<KListColumn> CDlgAutomobilInformations::columnTable() const
{
    const QString dash = u"-"_s;
    const auto sold = [](const QVariant &value) { return MatchTexts::sold(value.toInt() != 0); };
    return QList<KListColumn>{
               KListColumn::rowNumber(),
               {.key = u"buyer"_s, .title = u"نام خریدار"_s, .width = 120, .sortKey = u"iPersonBuyerID"_s, .lookup = u"ai.iPersonBuyerID"_s, .emptyText = dash},
               {.key = u"sold"_s, .title = u"وضعیت فروش"_s, .width = 70, .sortKey = u"bSold"_s, .column = u"ai.bSold"_s, .show = sold},
               {.key = u"owner"_s, .title = u"نام مالک"_s, .width = 120, .sortKey = u"iPersonID"_s, .lookup = u"ai.iPersonID"_s, .emptyText = dash},
               {.key = u"type"_s, .title = u"نوع خودرو"_s, .sortKey = u"iAutomobilType"_s, .lookup = u"ai.iAutomobilType"_s, .emptyText = dash},
               {.key = u"model"_s, .title = u"مدل"_s, .width = 50, .sortKey = u"iModel"_s, .column = u"cm.sName"_s},
               {.key = u"class"_s, .title = u"تیپ"_s, .width = 50, .sortKey = u"iBrigade"_s, .column = u"cc.sName"_s},
               {.key = u"plate"_s, .title = u"پلاک"_s, .width = 0, .sortKey = u"sNumOfPlates"_s, .column = u"ai.sNumOfPlates"_s, .isCode = true, .widthOnceOn = 70},
               {.key = u"year"_s, .title = u"سال تولید"_s, .width = 50, .sortKey = u"iYear"_s, .column = u"ai.iYear"_s},
               {.key = u"introduction"_s, .title = u"تاریخ معرفی"_s, .sortKey = u"dateIntroduction"_s, .column = u"ai.dateIntroduction"_s},
               {.key = u"usage"_s, .title = u"کاربری"_s, .alignment = Qt::AlignRight, .sortKey = u"iUsageType"_s, .column = u"ai.iUsageType"_s, .show = wordCells(WordLists::usageTypes()), .emptyText = dash},
               {.key = u"color"_s, .title = u"رنگ"_s, .width = 60, .alignment = Qt::AlignRight, .sortKey = u"iColor"_s, .lookup = u"ai.iColor"_s, .emptyText = dash},
               {.key = u"fuel"_s, .title = u"سوخت"_s, .sortKey = u"iFuel"_s, .column = u"ai.iFuel"_s, .show = wordCells(WordLists::fuelTypes())},
               {.key = u"amount"_s, .title = u"مبلغ"_s, .sortKey = u"dAmount"_s, .column = u"ai.dAmount"_s, .sums = true},
               {.key = u"documentsDeficit"_s, .title = u"کسری مدارک"_s, .alignment = Qt::AlignRight, .sortKey = u"sDocumentsDeficit"_s, .column = u"ai.sDocumentsDeficit"_s},
               {.key = u"partsDeficit"_s, .title = u"کسری لوازم"_s, .alignment = Qt::AlignRight, .sortKey = u"sFractionalParts"_s, .column = u"ai.sFractionalParts"_s},
               {.key = u"archived"_s, .title = u"وضعیت بایگانی"_s, .sortKey = u"iArchiveUserID"_s, .column = u"ai.iArchiveUserID"_s, .show = KListColumn::yesOrDash},
           }
    + CarListColumns::further();
}

bool CDlgAutomobilInformations::completesRows() const
{
    return CarListColumns::completes(*list());
}

void CDlgAutomobilInformations::completeRows(QVector<KListModel::Row> &rows)
{
    CarListColumns::complete(*list(), rows);
}

QList<KListFilter> CDlgAutomobilInformations::filterTable() const
{
    return carFilters(CarChoices::types, CarChoices::colors);
}

std::vector<KListCommand> CDlgAutomobilInformations::commands()
{
    using C = KListCommand;
    constexpr int change = C::HiddenInReadOnly | C::HiddenInSelect;
    return {
        {u"new"_s, u"جديد"_s, change, [this] { addCar(); }, QKeySequence(Qt::Key_Insert), u":/icons/new.svg"_s},
        {u"edit"_s, u"ويرايش"_s, change | C::NeedsRow, [this] { editCar(); }, QKeySequence(Qt::Key_F2),
         u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, change | C::NeedsRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        {u"show"_s, u"نمايش"_s, change | C::NeedsRow, [this] { showSelected(); }, {}, u":/icons/show.svg"_s, Read},
        {u"archive"_s, u"بايگاني شد"_s, change | C::NeedsRow, [this] { archiveCar(); }, {}, u":/icons/archive.svg"_s, Access, u"AutomobilInformationArchive"_s},
        {u"matchingDemands"_s, u"متقاضیان"_s, C::HiddenInSelect | C::NeedsRow | C::StartsGroup, [this] { showMatchingDemands(); }, {}, u":/icons/users.svg"_s, Access, u"AutomobilDemands"_s},
        recordCommand(u"contracts"_s, u"قراردادهای خودرو"_s, u":/icons/contract.svg"_s),
        recordCommand(u"pictures"_s, u"تصویرها"_s, u":/icons/picture.svg"_s),
        recordCommand(u"prices"_s, u"تاریخچه قیمت"_s, u":/icons/history.svg"_s),
        recordCommand(u"priceSheet"_s, u"برگه قیمت"_s, u":/icons/print.svg"_s),
        m_web->command(),
        recordCommand(u"whatIf"_s, u"برآورد معامله"_s, u":/icons/money.svg"_s),
        printCommand(C::StartsGroup),
        {u"import"_s, u"ورود از فایل"_s, change, [this] { importFile(); }, {}, u":/icons/table.svg"_s, Write},
        {u"catalog"_s, u"نام خودرو"_s, C::StartsGroup, [this] { browseCatalog(); }, {}, u":/icons/car.svg"_s, Access, u"CarsAll"_s},
        {u"inputParameters"_s, u"پارامترهاي ورودي"_s, 0, [this] { editInputParameters(); }, {}, u":/icons/settings.svg"_s, Access, u"InputParameters"_s},
        {u"webPage"_s, u"خروجی وب"_s, C::HiddenInSelect, [this] { CDlgWebGallery::Show(this); }, {}, u":/icons/web.svg"_s, PrintList},
        {u"reset"_s, u"پيش فرض"_s, C::BesideSearch, [this] { resetFilter(); }, {}, u":/icons/refresh.svg"_s},
    };
}

// What others do with a car (RecordWindows), in the menu of its row.
KListCommand CDlgAutomobilInformations::recordCommand(const QString &id, const QString &text, const QString &icon)
{
    using C = KListCommand;
    return {id, text, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this, id] {
                for (const RecordAction &action : RecordWindows::actionsOf(u"AutomobilInformations"_s, list()->currentKey())) {
                    if (action.id == id)
                        RecordWindows::run(action, list()->currentKey(), this);
                }
            },
            {},
            icon,
            Read};
}

KListTraits CDlgAutomobilInformations::traits() const
{
    KListTraits traits;
    traits.emptySort = u"sTitle"_s;
    traits.hasPlaceholders = true;
    traits.searchColumn = 6; // after the plate, which saves the list a line of height
    traits.makePerson = personFilter();
    traits.emptyIcon = u":/icons/car.svg"_s;
    traits.emptyText = u"هنوز خودرویی ثبت نشده است."_s;
    return traits;
}

QString CDlgAutomobilInformations::defaultSort() const
{
    return u"ai.iCode"_s;
}

void CDlgAutomobilInformations::opening()
{
    if (!isReadOnly())
        LeftPlaceholders::remove();
    m_gallery->open();
}

std::unique_ptr<KMySQL> CDlgAutomobilInformations::makeRecords() const
{
    return std::make_unique<CTblAutomobilInformationJoins>();
}

std::unique_ptr<KMySQL> CDlgAutomobilInformations::makeRecord() const
{
    return std::make_unique<CTblAutomobilInformations>();
}

void CDlgAutomobilInformations::resetFilter()
{
    emptyList();
    KListPage::resetFilter();
}

// The mode is known just before the first search.
void CDlgAutomobilInformations::modeApplied()
{
    if (m_demandID != 0)
        presetFromDemand();
}

void CDlgAutomobilInformations::presetFromDemand()
{
    CTblAutomobilDemands demand;
    if (!demand.IsRecordExist(u"iID"_s, m_demandID))
        return;
    for (const auto &[filter, column] : wishes)
        filters().set(filter, demand.value(column));
}

int CDlgAutomobilInformations::addPlaceholder()
{
    const OfficeSettings settings = OfficeSettings::read();
    settings.requireOpen();
    CDlgAddAutomobilInformation::expectPages();
    const auto fill = [&settings](CTblAutomobilInformations &car) {
        car.m_dateCreate = settings.serverTime();
        car.m_iYear = GetShamsiYearOfToday();
    };
    return NewRecord::add<CTblAutomobilInformations>(fill, [](int key) { RecordPictures::expectFurther(CTblAutomobilInformations::recordKind, key); });
}

void CDlgAutomobilInformations::importFile()
{
    if (!isSelectMode() && !isChangeBlocked() && CheckWriteSecurity() && CDlgImport::run(u"cars"_s, window()))
        refill();
}

void CDlgAutomobilInformations::addCar()
{
    const KReadAhead reading;
    for (int time = 0; time < 2; ++time)
        OfficeSettings::expect(); // whether the database is closed, and its clock
    if (isSelectMode() || isChangeBlocked())
        return;
    const int key = addPlaceholder();
    const bool confirmed = NewRecord::keptByEditor<CTblAutomobilInformations>(
        key, [&] { return CDlgAddAutomobilInformation::EditCar(key, true, this); });
    refill();
    if (confirmed)
        selectListed(key);
}

void CDlgAutomobilInformations::editCar()
{
    const int key = list()->currentKey();
    const KReadAhead reading;
    CDlgAddAutomobilInformation::expectEdit(key);
    if (key <= 0 || isSelectMode() || isChangeBlocked() || !CheckModifySecurity())
        return;
    // Taking the car out of the archive changes it even when the user then cancels.
    bool changed = false;
    if (CDlgAddAutomobilInformation::EditCar(key, false, this, &changed) || changed)
        refill();
}

void CDlgAutomobilInformations::showSelected()
{
    if (list()->currentKey() > 0 && CheckReadSecurity())
        showCar(list()->currentKey());
}

void CDlgAutomobilInformations::activated(int key)
{
    if (CheckReadSecurity())
        showCar(key);
}

void CDlgAutomobilInformations::showCar(int key)
{
    bool changed = false;
    CDlgAddAutomobilInformation::ShowCar(key, changed, this);
    if (changed)
        refill();
}

// The contracts stay, and would name a car that is gone.
void CDlgAutomobilInformations::deleteRecord(KMySQL &asked)
{
    const int contracts = CTblCarContracts::countOf(static_cast<CTblAutomobilInformations &>(asked).m_iID);
    if (contracts == 0
        || g_pDlgYesNo->Ask(u"از این خودرو %1 قرارداد نوشته شده است. قرارداد می‌ماند و دیگر به خودرو راه ندارد. با این حال خودرو حذف شود؟"_s.arg(contracts), this) != KMessageDialog::No)
        KListPage::deleteRecord(asked);
}

void CDlgAutomobilInformations::recordDeleted(int)
{
    refill();
}

void CDlgAutomobilInformations::archiveCar()
{
    if (isSelectMode())
        return;
    archiveSelected({u"AutomobilInformationArchive"_s, u"شما اجازه بایگانی کردن نامه ها را ندارید."_s,
                     u"این قرارداد قبلا بایگانی شده است."_s, u"بایگانی شد."_s},
                    [](KMySQL &record) {
                        CTblAutomobilInformations::archive(static_cast<CTblAutomobilInformations &>(record).m_iCode,
                                                           GetDBSetting()->GetUserID());
                    });
}

void CDlgAutomobilInformations::showMatchingDemands()
{
    if (list()->currentKey() > 0)
        CDlgMatchingDemands::Show(list()->currentKey(), this);
}

void CDlgAutomobilInformations::browseCatalog()
{
    if (!CheckAccessSecurity())
        return;
    CDlgCarsAll::Browse(this);
    filters().readChoices(u"type");
}

void CDlgAutomobilInformations::editInputParameters()
{
    if (!CheckAccessSecurity())
        return;
    CDlgInputParameters::Open(this);
    filters().readChoices(u"color");
}

KListReport CDlgAutomobilInformations::reportSpec() const
{
    const QString title = u"لیست گالری اتومبیل"_s;
    const QString group = u"گالری اتومبیل"_s;
    return {title, group, title, {{u"RightTop"_s, group}}};
}
