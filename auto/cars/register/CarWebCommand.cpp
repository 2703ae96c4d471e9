// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarWebCommand.h"

#include "auto/cars/register/CarListColumns.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/cars/web/PublicCondition.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <utility>

using namespace Qt::StringLiterals;

CarWebCommand::CarWebCommand(KListPage *page, std::function<bool()> showsCards)
    : m_page(page)
    , m_showsCards(std::move(showsCards))
{
}

KListCommand CarWebCommand::command()
{
    using C = KListCommand;
    return {.id = u"web"_s,
            .caption = PublicCondition::caption(),
            .options = C::HiddenInReadOnly | C::HiddenInSelect | C::NeedsRow | C::InRowMenu,
            .run = [this] { run(); },
            .icon = u":/icons/web.svg"_s,
            .needs = KSecurity::Modify,
            .isOn = [this] {
                m_seen = look();
                return m_seen.areTicked; }};
}

QList<qint32> CarWebCommand::cars() const
{
    const KExtListCtrl *list = m_page->list();
    // What is marked in the table is not to be seen among the cards.
    if (m_showsCards())
        return {list->currentKey()};
    QList<qint32> keys;
    for (const int row : list->markedRows())
        keys.append(list->listModel()->keyAt(row));
    return keys;
}

// Several of which some are not ticked yet are all ticked first.
CarWebCommand::Seen CarWebCommand::look() const
{
    const QList<qint32> marked = cars();
    return {marked, PublicCars::among(marked).size() == marked.size()};
}

void CarWebCommand::run()
{
    Seen seen = std::exchange(m_seen, {});
    if (seen.cars.isEmpty() || seen.cars != cars())
        seen = look();
    int gone = 0;
    {
        const KWaitCursor wait;
        PublicCars::set(seen.cars, !seen.areTicked, &gone);
        // The state of a row is seen, also by who has not asked for the column yet.
        if (!m_showsCards())
            m_page->list()->setColumnShown(CarListColumns::webKey(), true);
        m_page->refresh();
    }
    if (gone > 0)
        g_pDlgWarning->Show(u"%1 خودرو را در این میان کاربر دیگری حذف کرده است."_s.arg(gone), m_page);
}
