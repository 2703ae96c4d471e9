// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgServices.h"

#include "host/books/CDlgAddService.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

CDlgServices::CDlgServices(QWidget *parent)
    : KListPage(u"خدمات"_s, u"Services"_s, u"Services"_s, parent)
{
    build();
}

QList<KListColumn> CDlgServices::columnTable() const
{
    return {
        KListColumn::rowNumber(30),
        {.key = u"code"_s, .title = u"کد خدمت"_s, .width = 50, .sortKey = u"iCode"_s, .column = u"iCode"_s},
        {.key = u"name"_s, .title = u"نام خدمت"_s, .width = 300, .alignment = Qt::AlignRight, .sortKey = u"sName"_s, .column = u"sName"_s},
    };
}

QList<KListFilter> CDlgServices::filterTable() const
{
    return {
        {.key = u"name"_s, .label = u"نام :"_s, .kind = KListFilter::Kind::Text, .place = {0, 0}, .clause = FilterClauses::part("sName"), .options = KListFilter::FindGoesHere},
    };
}

KListTraits CDlgServices::traits() const
{
    return {.searchColumn = 2, .readsWholeRecords = true};
}

std::vector<KListCommand> CDlgServices::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"new"_s, u"جدید"_s, C::HiddenInReadOnly, [this] { addService(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ویرایش"_s, onRow, [this] { editService(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteService(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgServices::makeRecords() const
{
    return std::make_unique<CTblServices>();
}

QString CDlgServices::defaultSort() const
{
    return u"iCode"_s;
}

void CDlgServices::activated(int)
{
    runCommand(u"edit");
}

void CDlgServices::emptyAreaActivated()
{
    runCommand(u"new");
}

KListReport CDlgServices::reportSpec() const
{
    return {u"خدمات"_s, u"Services"_s, u"List"_s};
}

void CDlgServices::addService()
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    CDlgAddService dialog(0, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(dialog.serviceID());
}

void CDlgServices::editService()
{
    CTblServices service;
    if (isChangeBlocked() || !CheckModifySecurity() || !loadSelected(service))
        return;
    CDlgAddService dialog(service.m_iID, this);
    if (dialog.exec() == QDialog::Accepted)
        refill();
}

void CDlgServices::deleteService()
{
    const int key = list()->currentKey();
    if (key == 0 || isChangeBlocked() || !CheckDeletionSecurity()
        || g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    // One that is in use, or gone by now, is refused through the page's error boundary.
    guarded([key] { CTblServices::remove(key); });
    refill();
}
