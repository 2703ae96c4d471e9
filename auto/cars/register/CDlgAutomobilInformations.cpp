// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"

#include "auto/lists/FilterControls.h"
#include "auto/editor/NewRecord.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/fields/CarChoices.h"
#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/db/KLookup.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>

namespace {

enum Column {
    RowNumber,
    Buyer,
    Sold,
    Owner,
    Type,
    Model,
    Class,
    Plate,
    Year,
    Introduction,
    Usage,
    Color,
    Fuel,
    Amount,
    DocumentsDeficit,
    PartsDeficit,
    Archived
};

constexpr int notArchivedState = 1;
constexpr int chassisLength = 50;

QString column(const char *name)
{
    return QString::fromLatin1(name);
}

QString orDash(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}

}

CDlgAutomobilInformations::CDlgAutomobilInformations(QWidget *parent)
    : KListPage(QStringLiteral("گالري اتومبيل"), QStringLiteral("AutomobilInformations"), QStringLiteral("AutomobilInformations"),
                parent)
{
    build();
}

CDlgAutomobilInformations::~CDlgAutomobilInformations() = default;

int CDlgAutomobilInformations::SelectCar(QWidget *parent, int preselected)
{
    auto *page = new CDlgAutomobilInformations;
    page->setSelectMode(true, preselected);
    KDialogHolder holder(page, parent);
    holder.resize(1180, 680);
    holder.SetSettingName(QStringLiteral("AutomobilInformations\\Select"));
    return holder.exec() == QDialog::Accepted ? page->chosenKey() : 0;
}

void CDlgAutomobilInformations::ShowForDemand(int demandID)
{
    auto *page = new CDlgAutomobilInformations;
    page->setDemand(demandID);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

QVector<KListModel::Column> CDlgAutomobilInformations::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignCenter, 40, {}},
        {QStringLiteral("نام خریدار"), Qt::AlignCenter, 120, column("iPersonBuyerID")},
        {QStringLiteral("وضعیت فروش"), Qt::AlignCenter, 70, column("bSold")},
        {QStringLiteral("نام مالک"), Qt::AlignCenter, 120, column("iPersonID")},
        {QStringLiteral("نوع خودرو"), Qt::AlignCenter, 80, column("iAutomobilType")},
        {QStringLiteral("مدل"), Qt::AlignCenter, 50, column("iModel")},
        {QStringLiteral("تیپ"), Qt::AlignCenter, 50, column("iBrigade")},
        {QStringLiteral("پلاک"), Qt::AlignCenter, 0, column("sNumOfPlates"), false, true},
        {QStringLiteral("سال تولید"), Qt::AlignCenter, 50, column("iYear")},
        {QStringLiteral("تاریخ معرفی"), Qt::AlignCenter, 80, column("dateIntroduction"), true},
        {QStringLiteral("کاربری"), Qt::AlignRight, 80, column("iUsageType")},
        {QStringLiteral("رنگ"), Qt::AlignRight, 60, column("iColor")},
        {QStringLiteral("سوخت"), Qt::AlignCenter, 80, column("iFuel")},
        {QStringLiteral("مبلغ"), Qt::AlignCenter, 80, column("dAmount")},
        {QStringLiteral("کسری مدارک"), Qt::AlignRight, 80, column("sDocumentsDeficit")},
        {QStringLiteral("کسری لوازم"), Qt::AlignRight, 80, column("sFractionalParts")},
        {QStringLiteral("وضعیت بایگانی"), Qt::AlignCenter, 80, column("iArchiveUserID")},
    };
}

std::vector<KListCommand> CDlgAutomobilInformations::commands()
{
    using C = KListCommand;
    constexpr int change = C::HiddenInReadOnly | C::HiddenInSelect;
    return {
        {QStringLiteral("new"), QStringLiteral("جديد"), change, [this] { addCar(); }, QKeySequence(Qt::Key_Insert), QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), QStringLiteral("ويرايش"), change | C::NeedsRow, [this] { editCar(); }, QKeySequence(Qt::Key_F2),
         QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), change | C::NeedsRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        {QStringLiteral("show"), QStringLiteral("نمايش"), change | C::NeedsRow, [this] { showSelected(); }, {}, QStringLiteral(":/icons/show.svg")},
        {QStringLiteral("archive"), QStringLiteral("بايگاني شد"), change | C::NeedsRow, [this] { archiveCar(); }, {}, QStringLiteral(":/icons/archive.svg")},
        {QStringLiteral("matchingDemands"), QStringLiteral("متقاضیان"), C::HiddenInSelect | C::NeedsRow | C::StartsGroup, [this] { showMatchingDemands(); }, {}, QStringLiteral(":/icons/users.svg")},
        printCommand(C::StartsGroup),
        {QStringLiteral("catalog"), QStringLiteral("نام خودرو"), C::StartsGroup, [this] { browseCatalog(); }, {}, QStringLiteral(":/icons/car.svg")},
        {QStringLiteral("inputParameters"), QStringLiteral("پارامترهاي ورودي"), 0, [this] { editInputParameters(); }, {}, QStringLiteral(":/icons/settings.svg")},
        {QStringLiteral("reset"), QStringLiteral("پيش فرض"), C::BesideSearch, [this] { resetFilter(); }, {}, QStringLiteral(":/icons/refresh.svg")},
    };
}

void CDlgAutomobilInformations::buildFilters(QGridLayout *grid)
{
    QWidget *box = grid->parentWidget();
    using namespace FilterControls;
    const QString ownerLabel = QStringLiteral("نام مالک :");
    const QString buyerLabel = QStringLiteral("نام خريدار :");
    const QString to = QStringLiteral("تا :");

    m_owner = new KPersonField(ownerLabel, box);
    m_type = new QComboBox(box);
    m_amountFrom = number(KEdit::Kind::Money, QStringLiteral("مبلغ از :"), box);
    m_amountTo = number(KEdit::Kind::Money, QStringLiteral("مبلغ تا :"), box);
    addFilter(grid, 0, 0, ownerLabel, m_owner);
    addFilter(grid, 0, 2, QStringLiteral("نوع خودرو :"), m_type);
    addFilter(grid, 0, 4, QStringLiteral("مبلغ از :"), m_amountFrom);
    addFilter(grid, 0, 6, to, m_amountTo);

    m_buyer = new KPersonField(buyerLabel, box);
    m_color = new QComboBox(box);
    m_yearFrom = number(KEdit::Kind::Integer, QStringLiteral("سال توليد از :"), box);
    m_yearTo = number(KEdit::Kind::Integer, QStringLiteral("سال توليد تا :"), box);
    addFilter(grid, 1, 0, buyerLabel, m_buyer);
    addFilter(grid, 1, 2, QStringLiteral("رنگ :"), m_color);
    addFilter(grid, 1, 4, QStringLiteral("سال توليد از :"), m_yearFrom);
    addFilter(grid, 1, 6, to, m_yearTo);

    m_chassis = new KEdit(box);
    m_chassis->setMaxLength(chassisLength);
    m_fuel = words(WordLists::fuelTypes(), 0, box);
    m_introductionFrom = date(QStringLiteral("تاريخ معرفي از :"), box);
    m_introductionTo = date(QStringLiteral("تاريخ معرفي تا :"), box);
    addFilter(grid, 2, 0, QStringLiteral("شماره شاسي :"), m_chassis);
    addFilter(grid, 2, 2, QStringLiteral("سوخت :"), m_fuel);
    addFilter(grid, 2, 4, QStringLiteral("تاريخ معرفي از :"), m_introductionFrom);
    addFilter(grid, 2, 6, to, m_introductionTo);

    m_archive = words(WordLists::archiveStates(), notArchivedState, box);
    m_inactive = new QCheckBox(QStringLiteral("نمايش غير فعال ها"), box);
    addFilter(grid, 3, 0, QStringLiteral("وضعيت بايگاني :"), m_archive);
    grid->addWidget(m_inactive, 3, 2, 1, 2);
    for (const int column : {1, 3, 5, 7})
        grid->setColumnStretch(column, column == 1 ? 3 : 2);

    buildHiddenFilters(box);
    CarChoices::fillTypes(m_type);
    CarChoices::fillColors(m_color);
}

// Kept for the search's sake, not shown.
void CDlgAutomobilInformations::buildHiddenFilters(QWidget *box)
{
    m_documentsDeficit = new KEdit(box);
    m_documentsDeficit->setAccessibleName(QStringLiteral("کسري مدارک :"));
    m_partsDeficit = new KEdit(box);
    m_partsDeficit->setAccessibleName(QStringLiteral("کسري لوازم :"));
    m_usage = FilterControls::words(WordLists::usageTypes(), 0, box);
    m_usage->setAccessibleName(QStringLiteral("کاربري :"));
    for (QWidget *control : {static_cast<QWidget *>(m_documentsDeficit), static_cast<QWidget *>(m_partsDeficit),
                             static_cast<QWidget *>(m_usage)})
        control->hide();
}

KListTraits CDlgAutomobilInformations::traits() const
{
    KListTraits traits;
    traits.emptySort = QStringLiteral("sTitle");
    traits.searchColumn = 4; // behind the state and the check box, so that the list keeps the height of a line
    return traits;
}

QString CDlgAutomobilInformations::defaultSort() const
{
    return QStringLiteral("ai.iCode");
}

std::unique_ptr<KMySQL> CDlgAutomobilInformations::makeRecords() const
{
    return std::make_unique<CTblAutomobilInformationJoins>();
}

std::unique_ptr<KMySQL> CDlgAutomobilInformations::makeRecord() const
{
    return std::make_unique<CTblAutomobilInformations>();
}

QStringList CDlgAutomobilInformations::fetchedColumns() const
{
    return {column("ai.iPersonBuyerID"), column("ai.bSold"), column("ai.iPersonID"), column("ai.iAutomobilType"),
            column("cm.sName"), column("cc.sName"), column("ai.sNumOfPlates"), column("ai.iYear"),
            column("ai.dateIntroduction"), column("ai.iUsageType"), column("ai.iColor"), column("ai.iFuel"),
            column("ai.dAmount"), column("ai.sDocumentsDeficit"), column("ai.sFractionalParts"),
            column("ai.iArchiveUserID")};
}

CarCriteria CDlgAutomobilInformations::criteria() const
{
    auto chosen = [](const KDateEdit *edit) { return edit->isChecked() ? edit->dateTime() : QDateTime(); };
    CarCriteria criteria;
    criteria.withInactive = m_inactive->isChecked();
    criteria.archiveState = m_archive->currentIndex();
    criteria.currentUserID = GetDBSetting()->GetUserID();
    criteria.automobilType = CarChoices::chosenKey(m_type);
    criteria.color = CarChoices::chosenKey(m_color);
    criteria.fuel = m_fuel->currentIndex();
    criteria.introductionFrom = chosen(m_introductionFrom);
    criteria.introductionTo = chosen(m_introductionTo);
    criteria.documentsDeficitPart = m_documentsDeficit->text();
    criteria.partsDeficitPart = m_partsDeficit->text();
    criteria.amountFrom = m_amountFrom->number();
    criteria.amountTo = m_amountTo->number();
    criteria.yearFrom = m_yearFrom->integer();
    criteria.yearTo = m_yearTo->integer();
    criteria.buyerID = m_buyer->personID();
    criteria.ownerID = m_owner->personID();
    criteria.chassisPart = m_chassis->text();
    return criteria;
}

QString CDlgAutomobilInformations::filterClauses() const
{
    return carFilter(criteria());
}

void CDlgAutomobilInformations::beginRows()
{
    m_keys.clear();
}

KListModel::Row CDlgAutomobilInformations::makeRow(KMySQL &record, int number)
{
    const auto &car = static_cast<const CTblAutomobilInformationJoins &>(record);
    m_keys.append({car.m_iPersonBuyerID, car.m_iPersonID, car.m_iAutomobilType, car.m_iColor});
    const QString usage = WordLists::textAt(WordLists::usageTypes(), car.m_iUsageType);
    return {car.m_iID,
            {{QString::number(number), number},
             {},
             {car.m_bSold ? QStringLiteral("فروخته شده") : QStringLiteral("-")},
             {},
             {},
             {car.m_sModelName},
             {car.m_sClassName},
             {car.m_sNumOfPlates},
             {QString::number(car.m_iYear), car.m_iYear},
             {shamsiText(car.m_dateIntroduction.date()), car.m_dateIntroduction},
             {orDash(usage)},
             {},
             {WordLists::textAt(WordLists::fuelTypes(), car.m_iFuel)},
             {DToMoney(car.m_dAmount), car.m_dAmount},
             {car.m_sDocumentsDeficit},
             {car.m_sFractionalParts},
             {car.m_iArchiveUserID != 0 ? QStringLiteral("بلی") : QStringLiteral("-")}}};
}

void CDlgAutomobilInformations::completeRows(QVector<KListModel::Row> &rows)
{
    QList<int> persons;
    QList<int> types;
    QList<int> colors;
    persons.reserve(m_keys.size() * 2);
    for (const Keys &keys : std::as_const(m_keys)) {
        persons << keys.buyer << keys.owner;
        types << keys.type;
        colors << keys.color;
    }
    const QString key = QStringLiteral("iID");
    const auto personNames = KLookup::names(QStringLiteral("Persons"), key, QStringLiteral("sName2"), persons);
    const auto typeNames = KLookup::names(QStringLiteral("CarBrands"), key, QStringLiteral("sName"), types);
    const auto colorNames = KLookup::names(QStringLiteral("Items"), key, QStringLiteral("sName"), colors);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const Keys &keys = m_keys.at(i);
        QVector<KListModel::Cell> &cells = rows[i].cells;
        cells[Buyer].text = orDash(personNames.value(keys.buyer));
        cells[Owner].text = orDash(personNames.value(keys.owner));
        cells[Type].text = orDash(typeNames.value(keys.type));
        cells[Color].text = orDash(colorNames.value(keys.color));
    }
    m_keys.clear();
}

void CDlgAutomobilInformations::resetFilter()
{
    emptyList();
    m_documentsDeficit->clear();
    m_partsDeficit->clear();
    for (KEdit *edit : {m_amountFrom, m_amountTo, m_yearFrom, m_yearTo})
        edit->setNumber(0);
    for (QComboBox *combo : {m_usage, m_fuel, m_color})
        combo->setCurrentIndex(0);
    for (KDateEdit *edit : {m_introductionFrom, m_introductionTo})
        edit->setChecked(false);
    m_inactive->setChecked(false);
    m_archive->setCurrentIndex(notArchivedState);
    m_owner->clear();
    m_buyer->clear();
    CarChoices::fillTypes(m_type);
    m_type->setCurrentIndex(0);
    m_chassis->clear();
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
    if (!demand.IsRecordExist(QStringLiteral("iID"), m_demandID))
        return;
    m_amountFrom->setNumber(demand.m_dAmountFrom);
    m_amountTo->setNumber(demand.m_dAmountUpTo);
    m_yearFrom->setNumber(demand.m_iModelFrom);
    m_yearTo->setNumber(demand.m_iModelUpTo);
    CarChoices::choose(m_color, demand.m_iColor);
    CarChoices::choose(m_type, demand.m_iAutomobilType);
}

int CDlgAutomobilInformations::addPlaceholder()
{
    CTblAutomobilInformations car;
    car.Open(true, false, true);
    car.AddNew();
    car.m_iCode = CTblAutomobilInformations::nextCode();
    car.m_dateCreate = GetDBSetting()->GetDBServerDate();
    car.m_iYear = GetShamsiYearOfToday();
    car.Update(true);
    return static_cast<int>(car.GetLastInsertedID());
}

void CDlgAutomobilInformations::addCar()
{
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
    if (key <= 0 || isSelectMode() || isChangeBlocked() || !CheckModifySecurity())
        return;
    // Taken out of the archive on the way, a car is another one also for who then cancelled.
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

void CDlgAutomobilInformations::recordDeleted(int)
{
    refill();
}

void CDlgAutomobilInformations::archiveCar()
{
    if (isSelectMode())
        return;
    archiveSelected({QStringLiteral("AutomobilInformationArchive"), QStringLiteral("شما اجازه بایگانی کردن نامه ها را ندارید."),
                     QStringLiteral("این قرارداد قبلا بایگانی شده است."), QStringLiteral("بایگانی شد.")},
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
    CarChoices::fillTypes(m_type);
}

void CDlgAutomobilInformations::editInputParameters()
{
    if (!CheckAccessSecurity())
        return;
    CDlgInputParameters::Open(this);
    CarChoices::fillColors(m_color);
}

KListReport CDlgAutomobilInformations::reportSpec() const
{
    const QString title = QStringLiteral("لیست گالری اتومبیل");
    const QString group = QStringLiteral("گالری اتومبیل");
    return {title, group, title, {{QStringLiteral("RightTop"), group}}};
}

QWidget *CDlgAutomobilInformations::firstFilterControl() const
{
    return m_chassis;
}
