// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/CDlgEarlierLetters.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int earlierPageWidth = 720;
constexpr int mostLetters = 200;

}

CDlgEarlierLetters::CDlgEarlierLetters(const QList<LetterFiling::Filed> &letters, QWidget *parent)
    : KDialog(parent)
    , m_letters(letters)
    , m_list(new KExtListCtrl)
{
    setWindowTitle(u"نامه‌های قبلی"_s);
    SetSettingName(u"Letter\\Earlier"_s);
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns({{u"تاریخ"_s, Qt::AlignHCenter, 60, {}, true}, {u"شماره"_s, Qt::AlignHCenter, 60}, {u"موضوع"_s, Qt::AlignRight, 160}, {u"شخص"_s, Qt::AlignRight, 110}});
    QVector<KListModel::Row> rows;
    for (const LetterFiling::Filed &one : letters)
        rows.append({one.id, {{shamsiText(one.letter.date), one.letter.date}, {one.letter.number}, {one.letter.subject}, {one.person}}});
    m_list->setRows(std::move(rows));
    auto *page = new CardPage(earlierPageWidth, this);
    page->addList(m_list);
    setContent(page, createButtons(u"انتخاب"_s), Content::Fills);
    setAsksBeforeDropping(false);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgEarlierLetters::accept);
    m_list->selectRow(0);
    m_list->setFocus();
}

CDlgEarlierLetters::~CDlgEarlierLetters() = default;

std::optional<Letter> CDlgEarlierLetters::choose(QWidget *parent)
{
    QList<LetterFiling::Filed> letters;
    {
        const KWaitCursor wait;
        letters = LetterFiling::newest(mostLetters);
    }
    if (letters.isEmpty()) {
        g_pDlgMessage->Show(u"هنوز نامه‌ای بایگانی نشده است."_s, parent);
        return std::nullopt;
    }
    CDlgEarlierLetters dialog(letters, parent);
    return dialog.exec() == Accepted ? dialog.chosen() : std::nullopt;
}

std::optional<Letter> CDlgEarlierLetters::chosen() const
{
    const auto found = std::find_if(m_letters.begin(), m_letters.end(), [key = m_list->currentKey()](const LetterFiling::Filed &one) { return one.id == key; });
    return found == m_letters.end() ? std::nullopt : std::optional(found->letter);
}

bool CDlgEarlierLetters::OnOK()
{
    return chosen().has_value();
}
