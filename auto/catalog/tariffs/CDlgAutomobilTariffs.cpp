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

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 50;

QString editCaption()
{
    return u"ويرايش"_s;
}

QString closeCaption()
{
    return u"بازگشت"_s;
}

int run(KDialogHolder &window)
{
    window.resize(760, 540);
    window.SetSettingName(u"AutomobilTariffs\\Window"_s);
    return window.exec();
}

}

CDlgAutomobilTariffs::CDlgAutomobilTariffs(QWidget *parent)
    : KListPage(u"هزينه هاي تعرفه هاي محضر"_s, u"AutomobilTariffs"_s,
                u"AutomobilTariff"_s, parent)
{
    build();
}

CDlgAutomobilTariffs::~CDlgAutomobilTariffs() = default;

int CDlgAutomobilTariffs::Select(QWidget *parent, int current)
{
    auto *page = new CDlgAutomobilTariffs;
    page->setSelectMode(true, current);
    KDialogHolder window(page, parent, u"انتخاب"_s, closeCaption());
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
        {u"ردیف"_s, Qt::AlignCenter, 40, {}},
        {u"نام"_s, Qt::AlignCenter, 80, u"iCode"_s},
        {u"مبلغ"_s, Qt::AlignCenter, 80, u"sName"_s},
        {u"توضیحات"_s, Qt::AlignCenter, 100, {}},
    };
}

KListTraits CDlgAutomobilTariffs::traits() const
{
    KListTraits traits;
    traits.layoutSetting = u"AutomobilTariffs\\List"_s;
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
        {u"new"_s, u"جديد"_s, C::HiddenInReadOnly, [this] { addTariff(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s},
        {u"edit"_s, editCaption(), onRow, [this] { editTariff(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s},
        printCommand(C::StartsGroup),
    };
}

void CDlgAutomobilTariffs::buildFilters(QGridLayout *grid)
{
    QWidget *box = grid->parentWidget();
    m_name = new KEdit(box);
    m_name->setMaxLength(longestName);
    addFilter(grid, 0, 0, u"نام :"_s, m_name);
    // Kept for the filter's sake, not shown: the editor does not show whether a tariff is active either.
    m_inactive = new QCheckBox(u"غير فعال ها را نيز نمايش بده"_s, box);
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
    const QString title = u"هزینه های تعرفه های محضر"_s;
    return {title, u"گالری اتومبیل"_s, title};
}

QWidget *CDlgAutomobilTariffs::firstFilterControl() const
{
    return m_name;
}
