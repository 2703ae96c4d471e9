// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"

#include "auto/lists/FilterControls.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/CDlgAutomobilContractSetting.h"
#include "auto/contracts/printing/ContractPrintingDesk.h"
#include "auto/contracts/figures/ContractSettlement.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/db/KLookup.h"
#include "auto/reports/income/CDlgAutoFullReport.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
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
    Type,
    Seller,
    Buyer,
    DocumentNumber,
    Explanation,
    ContractDate,
    ExpirationDate,
    Description,
    Archived
};

constexpr int notArchivedState = 1;
constexpr int notReturnedState = 1;

KListModel::Cell dateCell(const QDateTime &date)
{
    return {shamsiText(date.date()), date};
}

}

CDlgAutomobilContracts::CDlgAutomobilContracts(QWidget *parent)
    : KListPage(QStringLiteral("قرارداد"), QStringLiteral("AutomobilContracts"), QStringLiteral("AutomobilContracts"), parent)
    , m_printing(contractPrintingDesk(this))
{
    build();
}

CDlgAutomobilContracts::~CDlgAutomobilContracts() = default;

QVector<KListModel::Column> CDlgAutomobilContracts::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignCenter, 40, {}},
        {QStringLiteral("نوع قرارداد"), Qt::AlignCenter, 80, QStringLiteral("iContractType")},
        {QStringLiteral("فروشنده"), Qt::AlignRight, 80, {}},
        {QStringLiteral("خریدار"), Qt::AlignRight, 80, {}},
        {QStringLiteral("شماره سند"), Qt::AlignCenter, 80, QStringLiteral("iDocNum")},
        {QStringLiteral("شرح قرارداد"), Qt::AlignRight, 150, QStringLiteral("sExplain")},
        {QStringLiteral("تاریخ عقد"), Qt::AlignCenter, 80, QStringLiteral("dateContract"), true},
        {QStringLiteral("تاریخ انقضاء"), Qt::AlignCenter, 80, QStringLiteral("dateExpiration"), true},
        {QStringLiteral("توضیحات"), Qt::AlignRight, 150, QStringLiteral("sDesc")},
        {QStringLiteral("وضعیت بایگانی"), Qt::AlignRight, 50, QStringLiteral("iArchiveUserID")},
    };
}

std::vector<KListCommand> CDlgAutomobilContracts::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {QStringLiteral("پيش فرض"), C::NotDisplayed, [this] { resetFilter(); }},
        {QStringLiteral("جديد"), C::HiddenInReadOnly, [this] { addContract(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("ويرايش"), onRow, [this] { editContract(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("حذف"), onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        {QStringLiteral("نمايش"), onRow, [this] { showSelected(); }, {}, QStringLiteral(":/icons/show.svg")},
        {QStringLiteral("بايگاني شد"), onRow, [this] { archiveContract(); }, {}, QStringLiteral(":/icons/archive.svg")},
        printCommand(C::HiddenInSelect | C::StartsGroup),
        {QStringLiteral("چاپ قرارداد "), onRow, [this] { printContract(); }, {}, QStringLiteral(":/icons/print.svg")},
        {QStringLiteral("تسويه با فروشنده"), onRow | C::StartsGroup, [this] { settle(Side::Seller); }, {}, QStringLiteral(":/icons/receipt.svg")},
        {QStringLiteral("تسويه با خريدار"), onRow, [this] { settle(Side::Buyer); }, {}, QStringLiteral(":/icons/receipt.svg")},
        {QStringLiteral("تنظيمات"), C::StartsGroup, [this] { editSettings(); }, {}, QStringLiteral(":/icons/settings.svg")},
        {QStringLiteral("گزارش جامع"), 0, [this] { CDlgAutoFullReport::Show(this); }, {}, QStringLiteral(":/icons/money.svg")},
    };
}

void CDlgAutomobilContracts::buildFilters(QGridLayout *grid)
{
    QWidget *box = grid->parentWidget();
    using namespace FilterControls;
    auto queryEdit = [box](int length) {
        auto *edit = new KEdit(KEdit::Kind::QueryText, box);
        edit->setMaxLength(length);
        return edit;
    };
    const QString to = QStringLiteral("تا :");
    const QString clearCaption = QStringLiteral("...");

    m_seller = new KPersonField(QStringLiteral("فروشنده :"), clearCaption, box);
    m_archive = words(WordLists::archiveStates(), notArchivedState, box);
    m_contractFrom = date(QStringLiteral("تاريخ عقد از :"), box);
    m_contractTo = date(QStringLiteral("تاريخ عقد تا :"), box);
    addFilter(grid, 0, 0, QStringLiteral("فروشنده :"), m_seller);
    addFilter(grid, 0, 2, QStringLiteral("وضعيت بايگاني :"), m_archive);
    addFilter(grid, 0, 4, QStringLiteral("تاريخ عقد از :"), m_contractFrom);
    addFilter(grid, 0, 6, to, m_contractTo);

    m_buyer = new KPersonField(QStringLiteral("خريدار :"), clearCaption, box);
    m_returned = words(WordLists::returnStates(), notReturnedState, box);
    m_expirationFrom = date(QStringLiteral("تاريخ انقضاء از :"), box);
    m_expirationTo = date(QStringLiteral("تاريخ انقضاء تا :"), box);
    addFilter(grid, 1, 0, QStringLiteral("خريدار :"), m_buyer);
    addFilter(grid, 1, 2, QStringLiteral("برگشتي :"), m_returned);
    addFilter(grid, 1, 4, QStringLiteral("تاريخ انقضاء از :"), m_expirationFrom);
    addFilter(grid, 1, 6, to, m_expirationTo);

    m_description = queryEdit(50);
    m_explanation = queryEdit(250);
    m_inactive = new QCheckBox(QStringLiteral("نمايش غير فعال ها"), box);
    addFilter(grid, 2, 0, QStringLiteral("توضيحات :"), m_description);
    addFilter(grid, 2, 2, QStringLiteral("شرح قرارداد :"), m_explanation);
    grid->addWidget(m_inactive, 2, 4, 1, 2);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 2);

    // Kept for the filter's sake, not shown: the type is seen in the list.
    m_type = words(WordLists::contractTypesWithAll(), 0, box);
    m_type->setAccessibleName(QStringLiteral("نوع قرارداد :"));
    m_type->hide();
}

std::unique_ptr<KMySQL> CDlgAutomobilContracts::makeRecords() const
{
    return std::make_unique<CTblAutomobilContracts>();
}

QStringList CDlgAutomobilContracts::fetchedColumns() const
{
    return {QStringLiteral("iContractType"), QStringLiteral("iPersonFirstID"), QStringLiteral("iPersonSecondID"),
            QStringLiteral("sName1"), QStringLiteral("sName2"), QStringLiteral("iDocNum"), QStringLiteral("sExplain"),
            QStringLiteral("dateContract"), QStringLiteral("dateExpiration"), QStringLiteral("sDesc"),
            QStringLiteral("iArchiveUserID")};
}

ContractCriteria CDlgAutomobilContracts::criteria() const
{
    auto chosen = [](const KDateEdit *edit) { return edit->isChecked() ? edit->dateTime() : QDateTime(); };
    ContractCriteria criteria;
    criteria.activeOnly = isSelectMode() || !m_inactive->isChecked();
    criteria.firstPersonID = m_seller->personID();
    criteria.secondPersonID = m_buyer->personID();
    criteria.returnState = m_returned->currentIndex();
    criteria.archiveState = m_archive->currentIndex();
    criteria.currentUserID = GetDBSetting()->GetUserID();
    criteria.contractType = m_type->currentIndex();
    criteria.contractFrom = chosen(m_contractFrom);
    criteria.contractTo = chosen(m_contractTo);
    criteria.expirationFrom = chosen(m_expirationFrom);
    criteria.expirationTo = chosen(m_expirationTo);
    criteria.descriptionPart = m_description->queryText();
    criteria.explanationPart = m_explanation->queryText();
    return criteria;
}

QString CDlgAutomobilContracts::filterClauses() const
{
    return contractFilter(criteria());
}

void CDlgAutomobilContracts::beginRows()
{
    m_parties.clear();
}

KListModel::Row CDlgAutomobilContracts::makeRow(KMySQL &record, int number)
{
    const auto &contract = static_cast<const CTblAutomobilContracts &>(record);
    m_parties.append({contract.m_iPersonFirstID, contract.m_iPersonSecondID});
    return {contract.m_iID,
            {{QString::number(number), number},
             {WordLists::textAt(WordLists::contractTypes(), contract.m_iContractType)},
             {contract.m_sName1},
             {contract.m_sName2},
             {QString::number(contract.m_iDocNum), contract.m_iDocNum},
             {contract.m_sExplain},
             dateCell(contract.m_dateContract),
             dateCell(contract.m_dateExpiration),
             {contract.m_sDesc},
             {contract.m_iArchiveUserID != 0 ? QStringLiteral("بلی") : QStringLiteral("-")}}};
}

void CDlgAutomobilContracts::completeRows(QVector<KListModel::Row> &rows)
{
    QList<int> keys;
    keys.reserve(m_parties.size() * 2);
    for (const Parties &parties : std::as_const(m_parties))
        keys << parties.first << parties.second;
    const QHash<int, QString> names =
        KLookup::names(QStringLiteral("Persons"), QStringLiteral("iID"), QStringLiteral("sName2"), keys);
    auto name = [&names](int person, KListModel::Cell &cell) {
        if (const auto found = names.constFind(person); found != names.cend())
            cell.text = *found;
    };
    for (qsizetype i = 0; i < rows.size(); ++i) {
        name(m_parties.at(i).first, rows[i].cells[Seller]);
        name(m_parties.at(i).second, rows[i].cells[Buyer]);
    }
    m_parties.clear();
}

void CDlgAutomobilContracts::resetFilter()
{
    m_explanation->clear();
    for (KDateEdit *edit : {m_contractFrom, m_contractTo, m_expirationFrom, m_expirationTo})
        edit->setChecked(false);
    m_seller->clear();
    m_buyer->clear();
    m_description->clear();
    m_type->setCurrentIndex(0);
}

void CDlgAutomobilContracts::addContract()
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    const int key = CDlgAddAutomobilContract::NewContract(this);
    if (key == 0)
        return;
    refill();
    selectListed(key);
}

void CDlgAutomobilContracts::editContract()
{
    CTblAutomobilContracts contract;
    contract.SetColumns({QStringLiteral("iArchiveUserID")});
    if (isChangeBlocked() || !CheckModifySecurity() || !loadSelected(contract))
        return;
    if (contract.m_iArchiveUserID != 0)
        showContract(contract.m_iID);
    else if (CDlgAddAutomobilContract::EditContract(contract.m_iID, false, this))
        refill();
}

void CDlgAutomobilContracts::showSelected()
{
    if (list()->currentKey() > 0 && CheckReadSecurity())
        showContract(list()->currentKey());
}

void CDlgAutomobilContracts::showContract(int key)
{
    bool changed = false;
    CDlgAddAutomobilContract::ShowContract(key, changed, this);
    if (changed)
        refill();
}

void CDlgAutomobilContracts::archiveContract()
{
    archiveSelected({QStringLiteral("AutomobilContractArchive"), QStringLiteral("شما اجازه بایگانی کردن تقاضا را ندارید."),
                     QStringLiteral("این تقاضا قبلا بایگانی شده است."), QStringLiteral("بایگانی شد.")},
                    [](KMySQL &record) {
                        CTblAutomobilContracts::archive(static_cast<CTblAutomobilContracts &>(record).m_iCode,
                                                        GetDBSetting()->GetUserID());
                    });
}

// A printed contract shows all that the contract holds, so it asks the right to see one.
void CDlgAutomobilContracts::printContract()
{
    if (list()->currentKey() > 0 && CheckReadSecurity())
        m_printing.print(list()->currentKey());
}

void CDlgAutomobilContracts::settle(Side side)
{
    CTblAutomobilContracts contract;
    if (!loadSelected(contract))
        return;
    const ContractSettlement due = side == Side::Seller
        ? settlement(contract.m_iPersonFirstID, contract.m_dPayFirst, contract.m_dTax, contract.m_dImposition)
        : settlement(contract.m_iPersonSecondID, contract.m_dPaySecond, contract.m_dTax2, contract.m_dImposition2);
    if (due.personID == 0)
        return;
    if (contract.m_iStatus == 1) {
        g_pDlgMessage->Show(QStringLiteral("این قرارداد باطل شده است."), this);
        return;
    }
    GetDBSetting()->CashFromPersonMulti(due.personID, due.amount,
                                        QStringLiteral("بابت کمسیون قرارداد شماره %1").arg(contract.m_iNum), this);
}

void CDlgAutomobilContracts::editSettings()
{
    CDlgAutomobilContractSetting dialog(this);
    dialog.exec();
}

void CDlgAutomobilContracts::modeApplied()
{
    // Only active contracts can be picked.
    m_inactive->setVisible(!isSelectMode());
}

void CDlgAutomobilContracts::activated(int key)
{
    if (CheckReadSecurity())
        showContract(key);
}

void CDlgAutomobilContracts::emptyAreaActivated()
{
    addContract();
}

// A right click on a row is a shortcut for deleting it; the question stands between.
void CDlgAutomobilContracts::rightClicked(int)
{
    deleteSelected();
}

KListReport CDlgAutomobilContracts::reportSpec() const
{
    return {QStringLiteral("لیست قراردادها"), QStringLiteral("گالری اتومبیل"), QStringLiteral("لیست قراردادها")};
}

void CDlgAutomobilContracts::chose(int row)
{
    m_chosenNumber = list()->cellText(row, Type).toInt();
    m_chosenName = list()->cellText(row, Seller);
}

QWidget *CDlgAutomobilContracts::firstFilterControl() const
{
    return m_description;
}
