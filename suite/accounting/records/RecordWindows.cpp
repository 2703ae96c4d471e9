// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/records/RecordWindows.h"

#include "suite/accounting/frame/KErrorBoundary.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// One object for each, so that what of() returned stays where it is while others are entered.
std::vector<std::unique_ptr<RecordWindow>> &entered()
{
    static std::vector<std::unique_ptr<RecordWindow>> windows;
    return windows;
}

}

void RecordWindows::enter(RecordWindow window)
{
    remove(window.table);
    entered().push_back(std::make_unique<RecordWindow>(std::move(window)));
}

void RecordWindows::remove(const QString &table)
{
    std::erase_if(entered(), [&](const auto &window) { return window->table == table; });
}

const RecordWindow *RecordWindows::of(const QString &table)
{
    const auto found = std::ranges::find_if(entered(), [&](const auto &window) { return window->table == table; });
    return found == entered().end() ? nullptr : found->get();
}

bool RecordWindows::mayOpen(const QString &table)
{
    const RecordWindow *window = of(table);
    return window && KSecurity::IsGranted(window->form, KSecurity::Read);
}

void RecordWindows::open(const QString &table, qint32 key, bool edits, QWidget *parent)
{
    if (const RecordWindow *window = of(table))
        KErrorBoundary::guarded(parent, [&] { window->open(key, edits, parent); });
}

void RecordWindows::openList(const QString &table, const KListRequest &request)
{
    const RecordWindow *window = of(table);
    if (window && window->list)
        KErrorBoundary::guarded(nullptr, [&] { window->list(request); });
}

QList<RecordAction> RecordWindows::actionsOf(const QString &table, qint32 key)
{
    QList<RecordAction> actions;
    const RecordWindow *window = of(table);
    if (!window)
        return actions;
    for (const RecordAction &action : window->actions) {
        if (KSecurity::IsGranted(action.form, action.right) && (!action.isOffered || action.isOffered(key)))
            actions.append(action);
    }
    return actions;
}
