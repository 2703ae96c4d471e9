// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/CDlgAutomobilDemands.h"

#include "auto/lists/FilterControls.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/editor/CDlgMatchingCars.h"
#include "auto/cars/fields/CarChoices.h"
#include "auto/cars/demands/DemandArchiving.h"
#include "auto/db/CTblAutomobilDemandJoins.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/db/KLookup.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcDemands, "tz.auto.demands")

enum Column {
    RowNumber,
    Code,
    Person,
    Type,
    YearFrom,
    YearTo,
    AmountFrom,
    AmountTo,
    ReferenceDate,
    SpecialDescription,
    Archived
};

constexpr int notArchivedState = 1;
const QString noName = QStringLiteral("-");

QString archiveRights()
{
    return QStringLiteral("AutomobilDemandArchive");
}

KListModel::Cell numberCell(int number)
{
    return {QString::number(number), number};
}

KListModel::Cell moneyCell(double amount)
{
    return {DToMoney(amount), amount};
}

}

CDlgAutomobilDemands::CDlgAutomobilDemands(QWidget *parent)
    : KListPage(QStringLiteral("تقاضا"), QStringLiteral("AutomobilDemands"), QStringLiteral("AutomobilDemands"), parent)
{
    build();
}

CDlgAutomobilDemands::~CDlgAutomobilDemands() = default;

QVector<KListModel::Column> CDlgAutomobilDemands::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignCenter, 40, {}},
        {QStringLiteral("کد تقاضا"), Qt::AlignCenter, 40, QStringLiteral("ad.iCode")},
        {QStringLiteral("نام متقاضی"), Qt::AlignRight, 80, QStringLiteral("ad.iPersonID")},
        {QStringLiteral("نوع خودرو"), Qt::AlignRight, 80, QStringLiteral("ad.iAutomobilType")},
        {QStringLiteral("از مدل"), Qt::AlignRight, 50, QStringLiteral("ad.iModelFrom")},
        {QStringLiteral("تا مدل"), Qt::AlignRight, 50, QStringLiteral("ad.iModelUpTo")},
        {QStringLiteral("از مبلغ"), Qt::AlignCenter, 50, QStringLiteral("ad.dAmountFrom")},
        {QStringLiteral("تا مبلغ"), Qt::AlignCenter, 50, QStringLiteral("ad.dAmountUpTo")},
        {QStringLiteral("تاریخ مراجعه"), Qt::AlignCenter, 80, QStringLiteral("ad.dateReference"), true},
        {QStringLiteral("توضیحات ویژه"), Qt::AlignRight, 150, QStringLiteral("ad.sDescSpecial")},
        {QStringLiteral("وضعیت بایگانی"), Qt::AlignRight, 50, QStringLiteral("ad.iArchiveUserID")},
    };
}

std::vector<KListCommand> CDlgAutomobilDemands::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly | C::HiddenInSelect;
    KListCommand print = printCommand(C::HiddenInSelect | C::StartsGroup);
    print.caption = QStringLiteral("چاپ ليست");
    return {
        {QStringLiteral("reset"), QStringLiteral("پيش فرض"), C::BesideSearch, [this] { resetFilter(); }, {}, QStringLiteral(":/icons/refresh.svg")},
        {QStringLiteral("new"), QStringLiteral("جديد"), C::HiddenInReadOnly | C::HiddenInSelect, [this] { addDemand(); },
         QKeySequence(Qt::Key_Insert), QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), QStringLiteral("ويرايش"), onRow, [this] { editDemand(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("show"), QStringLiteral("نمايش"), onRow, [this] { showDemand(list()->currentKey()); }, {}, QStringLiteral(":/icons/show.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        {QStringLiteral("archive"), QStringLiteral("بايگاني شد"), onRow, [this] { archiveDemand(); }, {}, QStringLiteral(":/icons/archive.svg")},
        print,
        {QStringLiteral("matchingCars"), QStringLiteral("خودروهای مناسب"), C::NeedsRow | C::StartsGroup,
         [this] { CDlgMatchingCars::Show(list()->currentKey(), this); }, QKeySequence(Qt::CTRL | Qt::Key_M),
         QStringLiteral(":/icons/search.svg")},
        {QStringLiteral("carList"), QStringLiteral("گالري اتومبيل"), C::NeedsRow | C::HiddenInSelect, [this] { CDlgAutomobilInformations::ShowForDemand(list()->currentKey()); }, {}, QStringLiteral(":/icons/car.svg")},
    };
}

void CDlgAutomobilDemands::buildFilters(QGridLayout *grid)
{
    QWidget *box = grid->parentWidget();
    using namespace FilterControls;
    const QString to = QStringLiteral("تا :");

    m_person = new KPersonField(QStringLiteral("متقاضي :"), box);
    m_type = new QComboBox(box);
    m_amountFrom = number(KEdit::Kind::Money, QStringLiteral("مبلغ از :"), box);
    m_amountTo = number(KEdit::Kind::Money, QStringLiteral("مبلغ تا :"), box);
    addFilter(grid, 0, 0, QStringLiteral("متقاضي :"), m_person);
    addFilter(grid, 0, 2, QStringLiteral("نوع خودرو :"), m_type);
    addFilter(grid, 0, 4, QStringLiteral("مبلغ از :"), m_amountFrom);
    addFilter(grid, 0, 6, to, m_amountTo);

    m_specialDescription = new KEdit(KEdit::Kind::QueryText, box);
    m_specialDescription->setMaxLength(255);
    m_color = new QComboBox(box);
    m_yearFrom = number(KEdit::Kind::Integer, QStringLiteral("سال توليد از :"), box);
    m_yearTo = number(KEdit::Kind::Integer, QStringLiteral("سال توليد تا :"), box);
    addFilter(grid, 1, 0, QStringLiteral("توضيحات ويژه :"), m_specialDescription);
    addFilter(grid, 1, 2, QStringLiteral("رنگ :"), m_color);
    addFilter(grid, 1, 4, QStringLiteral("سال توليد از :"), m_yearFrom);
    addFilter(grid, 1, 6, to, m_yearTo);

    m_archive = words(WordLists::archiveStates(), notArchivedState, box);
    m_inactive = new QCheckBox(QStringLiteral("نمايش غير فعال ها"), box);
    m_inactive->setAccessibleName(m_inactive->text());
    m_referenceFrom = date(QStringLiteral("تاريخ مراجعه از :"), box);
    m_referenceTo = date(QStringLiteral("تاريخ مراجعه تا :"), box);
    addFilter(grid, 2, 0, QStringLiteral("وضعيت بايگاني :"), m_archive);
    grid->addWidget(m_inactive, 2, 2, 1, 2);
    addFilter(grid, 2, 4, QStringLiteral("تاريخ مراجعه از :"), m_referenceFrom);
    addFilter(grid, 2, 6, to, m_referenceTo);
    for (const int column : {1, 3, 5, 7})
        grid->setColumnStretch(column, column == 1 ? 3 : 2);
    CarChoices::fillTypes(m_type);
    CarChoices::fillColors(m_color);
}

KListTraits CDlgAutomobilDemands::traits() const
{
    KListTraits traits;
    traits.lowestRowLimit = 0;
    return traits;
}

// Nobody asked for it now: who may not archive is told nothing, and what fails is done at the next opening.
void CDlgAutomobilDemands::opening()
{
    if (isReadOnly() || !KSecurity::IsGranted(archiveRights(), KSecurity::Access))
        return;
    try {
        DemandArchiving::archiveOldOnes(GetDBSetting()->GetUserID());
    } catch (const CMySQLException &) {
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

QStringList CDlgAutomobilDemands::fetchedColumns() const
{
    return {QStringLiteral("ad.iID"), QStringLiteral("ad.iCode"), QStringLiteral("ad.iPersonID"),
            QStringLiteral("ad.iAutomobilType"), QStringLiteral("ad.iModelFrom"), QStringLiteral("ad.iModelUpTo"),
            QStringLiteral("ad.dAmountFrom"), QStringLiteral("ad.dAmountUpTo"), QStringLiteral("ad.sDescSpecial"),
            QStringLiteral("ad.dateReference"), QStringLiteral("ad.iArchiveUserID")};
}

DemandCriteria CDlgAutomobilDemands::criteria() const
{
    const auto chosen = [](const KDateEdit *edit) { return edit->isChecked() ? edit->dateTime() : QDateTime(); };
    DemandCriteria criteria;
    criteria.withInactive = m_inactive->isChecked();
    criteria.archiveState = m_archive->currentIndex();
    criteria.currentUserID = GetDBSetting()->GetUserID();
    criteria.automobilType = CarChoices::chosenKey(m_type);
    criteria.color = CarChoices::chosenKey(m_color);
    criteria.referenceFrom = chosen(m_referenceFrom);
    criteria.referenceTo = chosen(m_referenceTo);
    criteria.specialDescriptionPart = m_specialDescription->queryText();
    criteria.personID = m_person->personID();
    criteria.yearFrom = m_yearFrom->integer();
    criteria.yearTo = m_yearTo->integer();
    criteria.amountFrom = m_amountFrom->number();
    criteria.amountTo = m_amountTo->number();
    return criteria;
}

QString CDlgAutomobilDemands::filterClauses() const
{
    return demandFilter(criteria());
}

void CDlgAutomobilDemands::beginRows()
{
    m_keys.clear();
}

KListModel::Row CDlgAutomobilDemands::makeRow(KMySQL &record, int number)
{
    const auto &demand = static_cast<const CTblAutomobilDemandJoins &>(record);
    m_keys.append({demand.m_iPersonID, demand.m_iAutomobilType});
    return {demand.m_iID,
            {numberCell(number),
             numberCell(demand.m_iCode),
             {noName},
             {noName},
             numberCell(demand.m_iModelFrom),
             numberCell(demand.m_iModelUpTo),
             moneyCell(demand.m_dAmountFrom),
             moneyCell(demand.m_dAmountUpTo),
             {shamsiText(demand.m_dateReference.date()), demand.m_dateReference},
             {demand.m_sDescSpecial},
             {demand.m_iArchiveUserID != 0 ? QStringLiteral("بلی") : QStringLiteral("-")}}};
}

void CDlgAutomobilDemands::completeRows(QVector<KListModel::Row> &rows)
{
    QList<int> persons;
    QList<int> types;
    for (const Keys &keys : std::as_const(m_keys)) {
        persons.append(keys.person);
        types.append(keys.type);
    }
    const QHash<int, QString> personNames = CTblPersonsMini::GetNames(persons);
    const QHash<int, QString> typeNames =
        KLookup::names(QStringLiteral("CarBrands"), QStringLiteral("iID"), QStringLiteral("sName"), types);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        rows[i].cells[Person].text = personNames.value(m_keys.at(i).person, noName);
        rows[i].cells[Type].text = typeNames.value(m_keys.at(i).type, noName);
    }
    m_keys.clear();
}

void CDlgAutomobilDemands::resetFilter()
{
    emptyList();
    // Brands and colours may have been added since.
    CarChoices::fillTypes(m_type);
    CarChoices::fillColors(m_color);
    m_type->setCurrentIndex(0);
    m_color->setCurrentIndex(0);
    m_archive->setCurrentIndex(notArchivedState);
    m_inactive->setChecked(false);
    for (KDateEdit *edit : {m_referenceFrom, m_referenceTo})
        edit->setChecked(false);
    for (KEdit *edit : {m_amountFrom, m_amountTo, m_yearFrom, m_yearTo})
        edit->setNumber(0);
    m_specialDescription->clear();
    m_person->clear();
}

void CDlgAutomobilDemands::addDemand()
{
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
                                     QStringLiteral("شما اجازه بایگانی کردن تقاضا را ندارید."),
                                     QStringLiteral("این تقاضا قبلا بایگانی شده است."), QStringLiteral("بایگانی شد.")};
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
    const QString title = QStringLiteral("لیست تقاضاها");
    const QString group = QStringLiteral("گالری اتومبیل");
    return {title, group, title, {{QStringLiteral("RightTop"), group}}};
}

QWidget *CDlgAutomobilDemands::firstFilterControl() const
{
    return m_specialDescription;
}
