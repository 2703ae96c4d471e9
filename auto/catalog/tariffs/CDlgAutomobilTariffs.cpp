// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"

#include <QCheckBox>
#include <QGridLayout>

namespace {

constexpr int longestName = 50;

QString editCaption()
{
    return QStringLiteral("ويرايش");
}

QString closeCaption()
{
    return QStringLiteral("بازگشت");
}

int run(KDialogHolder &window)
{
    window.resize(760, 540);
    window.SetSettingName(QStringLiteral("AutomobilTariffs\\Window"));
    return window.exec();
}

}

CDlgAutomobilTariffs::CDlgAutomobilTariffs(QWidget *parent)
    : KListPage(QStringLiteral("هزينه هاي تعرفه هاي محضر"), QStringLiteral("AutomobilTariffs"),
                QStringLiteral("AutomobilTariff"), parent)
{
    build();
}

CDlgAutomobilTariffs::~CDlgAutomobilTariffs() = default;

int CDlgAutomobilTariffs::Select(QWidget *parent, int current)
{
    auto *page = new CDlgAutomobilTariffs;
    page->setSelectMode(true, current);
    KDialogHolder window(page, parent, QStringLiteral("انتخاب"), closeCaption());
    return run(window) == QDialog::Accepted ? page->chosenKey() : 0;
}

void CDlgAutomobilTariffs::Open(QWidget *parent)
{
    KDialogHolder window(new CDlgAutomobilTariffs, parent, QString(), closeCaption());
    run(window);
}

// The titles sort by columns that this table has not, as they always did: the database refuses, and the order stays.
QVector<KListModel::Column> CDlgAutomobilTariffs::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignCenter, 40, {}},
        {QStringLiteral("نام"), Qt::AlignCenter, 80, QStringLiteral("iCode")},
        {QStringLiteral("مبلغ"), Qt::AlignCenter, 80, QStringLiteral("sName")},
        {QStringLiteral("توضیحات"), Qt::AlignCenter, 100, {}},
    };
}

KListTraits CDlgAutomobilTariffs::traits() const
{
    KListTraits traits;
    traits.layoutSetting = QStringLiteral("AutomobilTariffs\\List");
    traits.hasRowLimit = false;
    traits.sortsWithoutRows = true;
    // This list is opened mostly to choose, and is kept on that occasion.
    traits.deletesInSelectMode = true;
    return traits;
}

std::vector<KListCommand> CDlgAutomobilTariffs::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {QStringLiteral("new"), QStringLiteral("جديد"), C::HiddenInReadOnly, [this] { addTariff(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), editCaption(), onRow, [this] { editTariff(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        printCommand(C::StartsGroup),
    };
}

void CDlgAutomobilTariffs::buildFilters(QGridLayout *grid)
{
    QWidget *box = grid->parentWidget();
    m_name = new KEdit(box);
    m_name->setMaxLength(longestName);
    addFilter(grid, 0, 0, QStringLiteral("نام :"), m_name);
    // Kept for the filter's sake, not shown: the editor does not show whether a tariff is active either.
    m_inactive = new QCheckBox(QStringLiteral("غير فعال ها را نيز نمايش بده"), box);
    m_inactive->hide();
}

std::unique_ptr<KMySQL> CDlgAutomobilTariffs::makeRecords() const
{
    return std::make_unique<CTblAutomobilTariffs>();
}

TariffCriteria CDlgAutomobilTariffs::criteria() const
{
    return {m_inactive->isChecked(), m_name->text()};
}

QString CDlgAutomobilTariffs::filterClauses() const
{
    return tariffFilter(criteria());
}

KListModel::Row CDlgAutomobilTariffs::makeRow(KMySQL &record, int number)
{
    const auto &tariff = static_cast<const CTblAutomobilTariffs &>(record);
    return {tariff.m_iID,
            {{QString::number(number), number},
             {tariff.m_sTitle},
             {DToMoney(tariff.m_dAmount), tariff.m_dAmount},
             {tariff.m_sDesc}}};
}

void CDlgAutomobilTariffs::addTariff()
{
    if (isChangeBlocked() || !CheckDeletionSecurity())
        return;
    CDlgAddAutomobilTariff editor(0, false, false, this);
    if (editor.exec() != QDialog::Accepted || editor.tariffID() == 0)
        return;
    refill();
    selectListed(editor.tariffID());
}

void CDlgAutomobilTariffs::editTariff()
{
    const int key = list()->currentKey();
    if (key == 0 || isChangeBlocked() || !CheckModifySecurity())
        return;
    CDlgAddAutomobilTariff editor(key, true, false, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(key);
}

void CDlgAutomobilTariffs::recordDeleted(int)
{
    refill();
}

void CDlgAutomobilTariffs::activated(int)
{
    runCommand(editCaption());
}

KListReport CDlgAutomobilTariffs::reportSpec() const
{
    const QString title = QStringLiteral("هزینه های تعرفه های محضر");
    return {title, QStringLiteral("گالری اتومبیل"), title};
}

QWidget *CDlgAutomobilTariffs::firstFilterControl() const
{
    return m_name;
}
