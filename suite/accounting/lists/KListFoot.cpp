// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListFoot.h"

#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/lists/ListSums.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/Money.h"

#include <QLabel>

using namespace Qt::StringLiterals;

KListFoot::KListFoot(KListCard *card, KExtListCtrl *list, const KListTraits &traits)
    : QObject(card)
    , m_list(list)
    , m_traits(traits)
    , m_count(new QLabel(u"تعداد : -"_s, card))
    , m_empty(new KEmptyState(list))
{
    card->addToFoot(m_count);
    if (ListSums::isWanted(*list)) {
        m_sums = new ListSums(list, !traits.hasOwnTotals, card);
        card->addToFoot(m_sums, true);
    }
    connect(m_empty, &KEmptyState::pressed, this, &KListFoot::mendAsked);
}

QString KListFoot::countText() const
{
    return m_count->text();
}

void KListFoot::tellRows(qint64 leftOut, bool isAtLeast)
{
    QString text = SuiteMessages::count(m_list->count());
    if (leftOut > 0)
        text += (isAtLeast ? u" از بیش از "_s : u" از "_s) + DToMoney(static_cast<double>(m_list->count() + leftOut), 0);
    m_count->setText(text);
    refreshSums();
}

void KListFoot::refreshSums()
{
    if (m_sums)
        m_sums->refresh();
}

void KListFoot::tellEmptiness(Emptiness emptiness, const KListCommand *adding)
{
    switch (emptiness) {
    case Emptiness::None: return m_empty->dismiss();
    case Emptiness::Narrowed: return m_empty->say(u":/icons/search.svg"_s, u"در ردیف‌های این فهرست یافت نشد."_s, u"نمایش همه ردیف‌ها"_s, u":/icons/filter.svg"_s);
    case Emptiness::Filtered: return m_empty->say(u":/icons/search.svg"_s, u"با این فیلتر چیزی یافت نشد."_s, u"پاک کردن فیلتر"_s, u":/icons/filter.svg"_s);
    case Emptiness::Bare: return m_empty->say(m_traits.emptyIcon, m_traits.emptyText, adding ? adding->caption : QString(), adding ? adding->icon : QString());
    }
}
