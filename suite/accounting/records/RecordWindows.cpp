// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/records/RecordWindows.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// One object for each, so that what of() returned stays where it is while others are entered.
std::vector<std::unique_ptr<RecordWindow>> &entered()
{
    static std::vector<std::unique_ptr<RecordWindow>> windows;
    return windows;
}

struct Further
{
    QString table;
    RecordAction action;
};

std::vector<Further> &further()
{
    static std::vector<Further> actions;
    return actions;
}

bool isThere(const QString &table, qint32 key)
{
    CTblTemp query;
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT 1 FROM %1 WHERE iID=%2", KSql::name(table), key));
    return query.HasResultRow();
}

// Who made it so is said where it is known.
void tellGone(const QString &table, qint32 key, QWidget *parent)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    const QString what = subject ? subject->kind : u"ردیف"_s;
    g_pDlgMessage->Show(u"این %1 دیگر در دفتر نیست؛ %2 آن را حذف کرده است."_s.arg(what, RowChanged::lastChange(table, key)), parent);
}

bool mayNow(const RecordWindow &window, bool edits)
{
    if (window.form.isEmpty())
        return true;
    KSecurity security;
    security.SetFormName(window.form);
    security.CheckSecurity();
    if (!edits)
        return security.CheckReadSecurity();
    GetDBSetting()->RequireOpenDB();
    return security.CheckModifySecurity();
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
    return window && (window->form.isEmpty() || KSecurity::IsGranted(window->form, KSecurity::Read));
}

void RecordWindows::open(const QString &table, qint32 key, bool edits, QWidget *parent)
{
    const RecordWindow *window = of(table);
    if (!window)
        return;
    KErrorBoundary::guarded(parent, [&] {
        if (!mayNow(*window, edits))
            return;
        if (isThere(table, key))
            window->open(key, edits, parent);
        else
            tellGone(table, key, parent);
    });
}

void RecordWindows::openList(const QString &table, const KListRequest &request)
{
    const RecordWindow *window = of(table);
    if (window && window->list)
        KErrorBoundary::guarded(nullptr, [&] { window->list(request); });
}

void RecordWindows::addAction(const QString &table, RecordAction action)
{
    removeAction(table, action.id);
    further().push_back({table, std::move(action)});
}

void RecordWindows::removeAction(const QString &table, const QString &id)
{
    std::erase_if(further(), [&](const Further &one) { return one.table == table && one.action.id == id; });
}

void RecordWindows::run(const RecordAction &action, qint32 key, QWidget *parent)
{
    KErrorBoundary::guarded(parent, [&] { action.run(key, parent); });
}

QList<RecordAction> RecordWindows::actionsOf(const QString &table, qint32 key)
{
    QList<RecordAction> actions;
    const auto offer = [&](const RecordAction &action) {
        if (KSecurity::IsGranted(action.form, action.right) && (!action.isOffered || action.isOffered(key)))
            actions.append(action);
    };
    const RecordWindow *window = of(table);
    if (!window)
        return actions;
    std::ranges::for_each(window->actions, offer);
    for (const Further &one : further()) {
        if (one.table == table)
            offer(one.action);
    }
    return actions;
}
