// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgServices.h"

#include "host/books/CDlgAddService.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <QGridLayout>

CDlgServices::CDlgServices(QWidget *parent)
    : KListPage(QStringLiteral("خدمات"), QStringLiteral("Services"), QStringLiteral("Services"), parent)
{
    build();
}

QVector<KListModel::Column> CDlgServices::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 30, {}},
        {QStringLiteral("کد خدمت"), Qt::AlignHCenter, 50, QStringLiteral("iCode")},
        {QStringLiteral("نام خدمت"), Qt::AlignRight, 300, QStringLiteral("sName")},
    };
}

std::vector<KListCommand> CDlgServices::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {QStringLiteral("new"), QStringLiteral("جدید"), C::HiddenInReadOnly, [this] { addService(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), QStringLiteral("ویرایش"), onRow, [this] { editService(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), onRow, [this] { deleteService(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        printCommand(C::StartsGroup),
    };
}

void CDlgServices::buildFilters(QGridLayout *grid)
{
    m_name = new KEdit(KEdit::Kind::QueryText, this);
    addFilter(grid, 0, 0, QStringLiteral("نام :"), m_name);
}

std::unique_ptr<KMySQL> CDlgServices::makeRecords() const
{
    return std::make_unique<CTblServices>();
}

QString CDlgServices::filterClauses() const
{
    return m_name->text().isEmpty() ? QString() : QStringLiteral(" AND sName LIKE '%") + m_name->queryText() + QStringLiteral("%'");
}

KListModel::Row CDlgServices::makeRow(KMySQL &record, int number)
{
    const auto &service = static_cast<const CTblServices &>(record);
    return {service.m_iID,
            {{QString::number(number), number}, {QString::number(service.m_iCode), service.m_iCode}, {service.m_sName}}};
}

QString CDlgServices::defaultSort() const
{
    return QStringLiteral("iCode");
}

void CDlgServices::activated(int)
{
    runCommand(QStringLiteral("ویرایش"));
}

void CDlgServices::emptyAreaActivated()
{
    runCommand(QStringLiteral("جدید"));
}

KListReport CDlgServices::reportSpec() const
{
    return {QStringLiteral("خدمات"), QStringLiteral("Services"), QStringLiteral("List")};
}

QWidget *CDlgServices::firstFilterControl() const
{
    return m_name;
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
    CTblServices service;
    if (isChangeBlocked() || !CheckDeletionSecurity() || !loadSelected(service)
        || g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    // A service that is in use says so through the error boundary of the page.
    CTblServices::remove(service.m_iID);
    refill();
}
