// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgMessageTexts.h"

#include "suite/accounting/lists/FilterClauses.h"
#include "suite/crm/messages/CDlgAddMessageText.h"
#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/utility/lists/KExtListCtrl.h"

CDlgMessageTexts::CDlgMessageTexts(QWidget *parent)
    : KListPage(u"متن پیام‌ها"_s, u"MessageTexts"_s, u"MessageTexts"_s, parent)
{
    build();
}

CDlgMessageTexts::~CDlgMessageTexts() = default;

QList<KListColumn> CDlgMessageTexts::columnTable() const
{
    const auto kind = [](const QVariant &value) { return KListColumn::Cell{MessageKinds::titleOf(value.toString())}; };
    const auto onOneLine = [](const QVariant &value) { return KListColumn::Cell{value.toString().simplified()}; };
    return {
        KListColumn::rowNumber(30),
        {.key = u"kind"_s, .title = u"برای"_s, .width = 90, .alignment = Qt::AlignRight, .sortKey = u"sKind"_s, .column = u"sKind"_s, .show = kind},
        {.key = u"name"_s, .title = u"نام"_s, .width = 100, .alignment = Qt::AlignRight, .sortKey = u"sName"_s, .column = u"sName"_s},
        {.key = u"text"_s, .title = u"متن"_s, .width = 320, .alignment = Qt::AlignRight, .column = u"sText"_s, .show = onOneLine},
        {.key = u"user"_s, .title = u"کاربر"_s, .width = 60, .alignment = Qt::AlignRight, .lookup = u"iUserID"_s, .emptyText = u"-"_s},
        {.key = u"created"_s, .title = u"تاریخ ایجاد"_s, .width = 60, .sortKey = u"dateCreate"_s, .column = u"dateCreate"_s},
    };
}

QList<KListFilter> CDlgMessageTexts::filterTable() const
{
    return {
        {.key = u"name"_s, .label = u"نام :"_s, .kind = KListFilter::Kind::Text, .place = {0, 0}, .clause = FilterClauses::part("sName"), .options = KListFilter::FindGoesHere},
    };
}

KListTraits CDlgMessageTexts::traits() const
{
    KListTraits traits;
    traits.searchColumn = 2;
    traits.readsWholeRecords = true;
    traits.emptyIcon = u":/icons/edit.svg"_s;
    traits.emptyText = u"هنوز متنی ننوشته‌اید؛ پیام‌ها از متن همراه برنامه پر می‌شوند."_s;
    return traits;
}

std::vector<KListCommand> CDlgMessageTexts::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"new"_s, u"جدید"_s, C::HiddenInReadOnly, [this] { addText(); }, QKeySequence(Qt::Key_Insert), u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ویرایش"_s, onRow, [this] { editText(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteSelected(); }, QKeySequence(Qt::Key_Delete), u":/icons/delete.svg"_s, Delete},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgMessageTexts::makeRecords() const
{
    return std::make_unique<CTblMessageTexts>();
}

void CDlgMessageTexts::activated(int)
{
    runCommand(u"edit");
}

void CDlgMessageTexts::emptyAreaActivated()
{
    runCommand(u"new");
}

KListReport CDlgMessageTexts::reportSpec() const
{
    return {u"متن پیام‌ها"_s, u"MessageTexts"_s, u"List"_s};
}

void CDlgMessageTexts::addText()
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    CDlgAddMessageText editor(0, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(editor.key());
}

void CDlgMessageTexts::editText()
{
    CTblMessageTexts text;
    if (isChangeBlocked() || !CheckModifySecurity() || !loadSelected(text))
        return;
    CDlgAddMessageText editor(text.m_iID, this);
    if (editor.exec() == QDialog::Accepted)
        refill();
}
