// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CDlgCarContracts.h"

#include "auto/words/WordLists.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QVector<KListModel::Column> contractColumns()
{
    return {{u"کد"_s, Qt::AlignCenter, 45},
            {u"تاریخ"_s, Qt::AlignCenter, 60, {}, true},
            {u"نوع"_s, Qt::AlignRight, 80},
            {u"فروشنده"_s, Qt::AlignRight, 120},
            {u"خریدار"_s, Qt::AlignRight, 120},
            {u"مبلغ"_s, Qt::AlignRight, 90},
            {u"وضعیت"_s, Qt::AlignRight, 60}};
}

QString contractState(const CarContracts::Entry &entry)
{
    if (entry.isArchived)
        return u"بایگانی"_s;
    return entry.isActive ? u"باز"_s : u"غیر فعال"_s;
}

KListModel::Row contractRow(const CarContracts::Entry &entry)
{
    return {entry.contractID,
            {{QString::number(entry.code), entry.code},
             {shamsiText(entry.date.date()), entry.date.date()},
             {WordLists::textAt(WordLists::contractTypes(), entry.type)},
             {entry.seller},
             {entry.buyer},
             {DToMoney(entry.amount), entry.amount},
             {contractState(entry)}}};
}

}

CDlgCarContracts::CDlgCarContracts(int carID, Purpose purpose, QWidget *parent)
    : KDialog(parent)
    , m_carID(carID)
    , m_purpose(purpose)
{
    SetSettingName(u"AutomobilInformations\\Contracts"_s);
    setWindowTitle(u"قراردادهای خودرو"_s);
    build();
    fill();
    resize(LookSizes::scaled(860), LookSizes::scaled(360));
}

CDlgCarContracts::~CDlgCarContracts() = default;

void CDlgCarContracts::Show(int carID, QWidget *parent)
{
    CDlgCarContracts(carID, Purpose::Show, parent).exec();
}

bool CDlgCarContracts::mayBeginAnother(int carID, int exceptContract, QWidget *parent)
{
    if (!CarContracts::openOf(carID, exceptContract))
        return true;
    return CDlgCarContracts(carID, Purpose::AskForAnother, parent).exec() == Accepted;
}

void CDlgCarContracts::build()
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(u"قراردادهای خودرو"_s);
    m_list->setColumns(contractColumns());
    m_list->SetSettingName(u"AutomobilInformations\\ContractList"_s);
    connect(m_list, &KExtListCtrl::rowActivated, this, [this] { openSelected(); });

    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    const bool asks = m_purpose == Purpose::AskForAnother;
    if (asks) {
        auto *question = new QLabel(u"این خودرو در قرارداد باز دیگری هست. با این حال قرارداد تازه‌ای از آن نوشته شود؟"_s, content);
        question->setWordWrap(true);
        cards->addCard(question);
    }
    cards->addCard(new KListCard(m_list, content), true);
    QDialogButtonBox *buttons = asks ? createButtons(u"قرارداد تازه"_s, u"انصراف"_s) : createButtons({}, u"بازگشت"_s);
    m_open = buttons->addButton(u"نمایش قرارداد"_s, QDialogButtonBox::ActionRole);
    m_open->setIcon(LookIcons::icon(u":/icons/contract.svg"_s));
    m_open->setAccessibleName(m_open->text());
    connect(m_open, &QPushButton::clicked, this, &CDlgCarContracts::openSelected);
    if (!asks) {
        m_unlink = buttons->addButton(u"جدا کردن از خودرو"_s, QDialogButtonBox::ActionRole);
        m_unlink->setIcon(LookIcons::icon(u":/icons/close.svg"_s));
        m_unlink->setAccessibleName(m_unlink->text());
        connect(m_unlink, &QPushButton::clicked, this, &CDlgCarContracts::unlinkSelected);
    }
    setContent(content, buttons);
}

void CDlgCarContracts::fill()
{
    QVector<KListModel::Row> rows;
    m_entries = CarContracts::ofCar(m_carID);
    for (const CarContracts::Entry &entry : std::as_const(m_entries))
        rows.append(contractRow(entry));
    const int selected = m_list->currentKey();
    m_list->setRows(rows);
    if (selected == 0 || !m_list->selectKey(selected))
        m_list->selectRow(0);
    m_open->setEnabled(!rows.isEmpty() && RecordWindows::mayOpen(u"AutomobilContracts"_s));
    if (m_unlink)
        m_unlink->setEnabled(!rows.isEmpty() && KSecurity::IsGranted(u"AutomobilContracts"_s, KSecurity::Modify));
    m_list->setFocus();
}

// What is done to the contract in its window may change its row here.
void CDlgCarContracts::openSelected()
{
    if (m_list->currentKey() == 0 || !m_open->isEnabled())
        return;
    RecordWindows::open(u"AutomobilContracts"_s, m_list->currentKey(), false, this);
    fill();
}

// Whatever was told, the list shows what is true now.
void CDlgCarContracts::unlinkSelected()
{
    const int key = m_list->currentKey();
    const auto entry = std::ranges::find(m_entries, key, &CarContracts::Entry::contractID);
    if (entry == m_entries.end())
        return;
    const CarContracts::Entry asked = *entry;
    if (g_pDlgYesNo->Ask(u"%1\nاز این خودرو جدا شود؟ قرارداد و صفحه فروش خودرو همان‌گونه می‌مانند."_s.arg(CarContracts::words(asked)), this) == KMessageDialog::No)
        return;
    KErrorBoundary::guarded(this, [&] { CarContracts::unlink(m_carID, asked); });
    KErrorBoundary::guarded(this, [this] { fill(); });
}
