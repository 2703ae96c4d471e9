// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/CDlgPaymentAmount.h"

#include "auto/reports/season/PayableAmount.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr double highestAmount = 1e15;

}

CDlgPaymentAmount::CDlgPaymentAmount(int season, quint16 shamsiYear, QWidget *parent)
    : KDialog(parent)
{
    SetFormName(u"AutomobilReportSeasons"_s);
    CheckSecurity();
    setWindowTitle(u"پرداختي"_s);
    SetSettingName(u"PaymentAmount"_s);

    const PayableAmount amount = PayableAmount::ofSeason(season, shamsiYear);
    auto *grid = new QGridLayout;
    addAmount(grid, u"جمع فروش :"_s, amount.sales);
    addAmount(grid, u"جمع خريد :"_s, amount.purchases);
    auto *rule = new QLabel(QString(48, u'-'));
    rule->setAlignment(Qt::AlignCenter);
    grid->addWidget(rule, grid->rowCount(), 0, 1, 3);
    addAmount(grid, u"نتيجه :"_s, amount.result());

    QDialogButtonBox *buttons = createButtons({}, u"بازگشت"_s);
    const QList<QAbstractButton *> all = buttons->buttons();
    all.constFirst()->setIcon(QIcon(u":/icons/close.svg"_s));
    all.constFirst()->setFocus();

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addWidget(buttons);
}

KEdit *CDlgPaymentAmount::addAmount(QGridLayout *grid, const QString &label, double amount)
{
    auto *edit = new KEdit(KEdit::Kind::Money);
    edit->setReadOnly(true);
    edit->setRange(-highestAmount, highestAmount); // purchases can be more than sales
    edit->setMinimumWidth(200);
    edit->setNumber(amount);
    const int row = grid->rowCount();
    addLabelled(grid, row, 0, label, edit);
    grid->addWidget(new QLabel(GetDBSetting()->MoneyUnitName()), row, 2);
    grid->setColumnStretch(1, 1);
    return edit;
}
