// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/TariffFilter.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

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

// The titles sort by columns that this table has not, as they always did: a click changes nothing.
QList<KListColumn> CDlgAutomobilTariffs::columnTable() const
{
    return {
        KListColumn::rowNumber(),
        {.key = u"title"_s, .title = u"نام"_s, .sortKey = u"iCode"_s, .column = u"sTitle"_s},
        {.key = u"amount"_s, .title = u"مبلغ"_s, .sortKey = u"sName"_s, .column = u"dAmount"_s},
        {.key = u"description"_s, .title = u"توضیحات"_s, .width = 100, .column = u"sDesc"_s},
    };
}

QList<KListFilter> CDlgAutomobilTariffs::filterTable() const
{
    return tariffFilters();
}

KListTraits CDlgAutomobilTariffs::traits() const
{
    KListTraits traits;
    traits.layoutSetting = u"AutomobilTariffs\\List"_s;
    traits.hasRowLimit = false;
    // This list is opened mostly to choose, and is kept on that occasion.
    traits.deletesInSelectMode = true;
    traits.readsWholeRecords = true;
    return traits;
}

std::vector<KListCommand> CDlgAutomobilTariffs::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"new"_s, u"جديد"_s, C::HiddenInReadOnly, [this] { addTariff(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Delete},
        {u"edit"_s, u"ويرايش"_s, onRow, [this] { editTariff(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgAutomobilTariffs::makeRecords() const
{
    return std::make_unique<CTblAutomobilTariffs>();
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
    runCommand(u"edit");
}

KListReport CDlgAutomobilTariffs::reportSpec() const
{
    const QString title = u"هزینه های تعرفه های محضر"_s;
    return {title, u"گالری اتومبیل"_s, title};
}
