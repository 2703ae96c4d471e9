// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ChequeFields.h"

#include "suite/treasury/records/SayadNumber.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/values/TextStandard.h"

#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestSayadText = 24; // its digits in groups, as it is printed
constexpr int longestCodeText = 20;
constexpr int longestNameText = 100;

KEdit *codeEdit(int length)
{
    auto *edit = new KEdit(KEdit::Kind::Code);
    edit->setCodeLength(length);
    edit->setInputMethodHints(Qt::ImhDigitsOnly);
    return edit;
}

KEdit *nameEdit()
{
    auto *edit = new KEdit;
    edit->setMaxLength(longestNameText);
    return edit;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

}

ChequeFields::ChequeFields(QWidget *parent)
    : QGroupBox(u"مشخصات چک"_s, parent)
    , m_sayad(codeEdit(longestSayadText))
    , m_sayadNote(new FieldNote(m_sayad))
    , m_number(codeEdit(longestCodeText))
    , m_due(new KDateEdit)
    , m_bank(nameEdit())
    , m_branch(nameEdit())
    , m_branchCode(codeEdit(longestCodeText))
    , m_drawer(nameEdit())
{
    auto *grid = new FormGrid(this, FormGrid::Extent::Half);
    grid->addField(labelFor(u"شناسه صیادی :"_s, m_sayad), m_sayadNote, m_sayad, 2);
    addLabelled(grid, u"شماره چک :"_s, m_number);
    addLabelled(grid, u"سررسید :"_s, m_due);
    addLabelled(grid, u"بانک :"_s, m_bank, 2);
    addLabelled(grid, u"شعبه :"_s, m_branch);
    addLabelled(grid, u"کد شعبه :"_s, m_branchCode);
    addLabelled(grid, u"صادرکننده :"_s, m_drawer, 2);
    connect(m_sayad, &KEdit::textChanged, this, [this] { checkSayad(false); });
    connect(m_sayad, &KEdit::editingFinished, this, [this] { checkSayad(true); });
}

// A number that is still short is not wrong before the field is left.
void ChequeFields::checkSayad(bool isFinished)
{
    const QString digits = SayadNumber::normalized(m_sayad->plainText());
    const bool isTyping = !isFinished && digits.size() < SayadNumber::length && std::ranges::all_of(digits, isDigit);
    m_sayadNote->setOwnText(isTyping && !digits.isEmpty() ? u"%1 رقم از %2"_s.arg(digits.size()).arg(SayadNumber::length) : QString());
    m_sayad->setHint(isTyping || digits.isEmpty() ? QString() : SayadNumber::problem(digits));
}

Cheque ChequeFields::cheque() const
{
    return {.sayad = SayadNumber::normalized(m_sayad->plainText()),
            .number = toAsciiDigits(m_number->plainText()).trimmed(),
            .bank = ConvertToStandard(m_bank->text()),
            .branch = ConvertToStandard(m_branch->text()),
            .branchCode = toAsciiDigits(m_branchCode->plainText()).trimmed(),
            .due = m_due->dateTime(),
            .drawer = ConvertToStandard(m_drawer->text())};
}

void ChequeFields::setCheque(const Cheque &cheque)
{
    m_sayad->setText(cheque.sayad);
    m_number->setText(cheque.number);
    m_bank->setText(cheque.bank);
    m_branch->setText(cheque.branch);
    m_branchCode->setText(cheque.branchCode);
    m_due->setDateTime(cheque.due);
    m_drawer->setText(cheque.drawer);
    checkSayad(true);
}

void ChequeFields::setDrawerHint(const QString &name)
{
    m_drawer->setPlaceholderText(name);
}

QString ChequeFields::problem(QWidget **field) const
{
    if (const QString wrong = SayadNumber::problem(m_sayad->plainText()); !wrong.isEmpty()) {
        *field = m_sayad;
        return wrong;
    }
    *field = m_due;
    return m_due->entryError();
}

QWidget *ChequeFields::fieldOf(const QString &column) const
{
    const std::pair<QString, QWidget *> fields[] = {{u"sSayad"_s, m_sayad}, {u"sNumber"_s, m_number}, {u"sBank"_s, m_bank}, {u"sBranch"_s, m_branch}, {u"sBranchCode"_s, m_branchCode}, {u"dateDue"_s, m_due}, {u"sDrawer"_s, m_drawer}};
    for (const auto &[name, field] : fields) {
        if (name == column)
            return field;
    }
    return nullptr;
}
