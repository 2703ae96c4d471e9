// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/CDlgPaymentAmount.h"

#include "auto/reports/season/PayableAmount.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr double highestAmount = 1e15;
constexpr int usualWidth = 400;
constexpr int wholeRow = 8;

}

CDlgPaymentAmount::CDlgPaymentAmount(int season, quint16 shamsiYear, QWidget *parent)
    : KDialog(parent)
{
    SetFormName(u"AutomobilReportSeasons"_s);
    CheckSecurity();
    setWindowTitle(u"پرداختي"_s);
    SetSettingName(u"PaymentAmount"_s);

    const PayableAmount amount = PayableAmount::ofSeason(season, shamsiYear);
    auto *content = new QWidget(this);
    auto *card = new QGroupBox(content);
    auto *grid = new FormGrid(card);
    addAmount(grid, u"جمع فروش :"_s, amount.sales);
    addAmount(grid, u"جمع خريد :"_s, amount.purchases);
    auto *rule = new QLabel(QString(48, u'-'));
    rule->setAlignment(Qt::AlignCenter);
    LookFonts::applyHint(rule);
    grid->addLine(rule);
    addAmount(grid, u"نتيجه :"_s, amount.result());
    (new CardStack(content))->addCard(card);

    QDialogButtonBox *buttons = createButtons({}, u"بازگشت"_s);
    QAbstractButton *close = buttons->buttons().constFirst();
    close->setIcon(LookIcons::icon(u":/icons/close.svg"_s));
    setContent(content, buttons);
    close->setFocus();
    resize(LookSizes::scaled(usualWidth), sizeHint().height());
}

// The amounts stand below each other, as they are reckoned.
void CDlgPaymentAmount::addAmount(FormGrid *grid, const QString &caption, double amount)
{
    auto *edit = new KEdit(KEdit::Kind::Money);
    edit->setReadOnly(true);
    edit->setRange(-highestAmount, highestAmount); // purchases can be more than sales
    edit->setNumber(amount);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(edit, 1);
    line->addWidget(new QLabel(GetDBSetting()->MoneyUnitName()));
    QLabel *label = labelFor(caption, edit);
    grid->addField(label, nullptr, line, wholeRow);
}
