// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/CDlgKeys.h"

#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QDialogButtonBox>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool holds(const KeyList::Entry &entry, const QStringList &words)
{
    const QString text = searchKey(entry.group + entry.keys + entry.work);
    return std::all_of(words.cbegin(), words.cend(), [&](const QString &word) { return text.contains(searchKey(word)); });
}

}

CDlgKeys::CDlgKeys(QVector<KeyList::Entry> keys, QWidget *parent)
    : KDialog(parent)
    , m_keys(std::move(keys))
    , m_search(new KEdit)
    , m_list(new KExtListCtrl)
{
    setWindowTitle(u"کلیدهای میانبر"_s);
    SetSettingName(u"Keys"_s);
    build();
    showMatching({});
    constexpr int letters = 100;
    constexpr int lines = 28;
    resize(fontMetrics().averageCharWidth() * letters, fontMetrics().lineSpacing() * lines);
    m_search->setFocus();
}

void CDlgKeys::build()
{
    m_search->setAccessibleName(u"جستجو در کلیدها"_s);
    m_search->setPlaceholderText(m_search->accessibleName());
    m_search->setClearButtonEnabled(true);
    LookMarks::setTall(m_search);
    connect(m_search, &KEdit::textChanged, this, &CDlgKeys::showMatching);
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns({{u"بخش"_s, Qt::AlignRight, 70, {}},
                        {.title = u"کلید"_s, .alignment = Qt::AlignHCenter, .width = 70, .isCode = true},
                        {u"کار"_s, Qt::AlignRight, 160, {}}});
    m_list->SetSettingName(u"Keys\\List"_s);

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    column->addWidget(m_search);
    column->addWidget(new KListCard(m_list, content), 1);
    setContent(content, createButtons({}, u"بستن"_s), Content::Fills);
    auto *printing = new KCommandButton(LookIcons::icon(u":/icons/print.svg"_s), u"چاپ"_s, this);
    printing->setAutoDefault(false);
    printing->setShortcutTip(QKeySequence(QKeySequence::Print));
    connect(printing, &QPushButton::clicked, this, &CDlgKeys::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this), &QShortcut::activated, printing, &QPushButton::click);
    footer()->addWidget(printing);
}

void CDlgKeys::showMatching(const QString &typed)
{
    const QStringList words = ConvertToStandard(typed).split(u' ', Qt::SkipEmptyParts);
    QVector<KListModel::Row> rows;
    for (const KeyList::Entry &entry : std::as_const(m_keys)) {
        if (holds(entry, words))
            rows.append({int(rows.size()) + 1, {{entry.group}, {entry.keys}, {entry.work}}});
    }
    m_list->setRows(std::move(rows));
    m_list->selectRow(0);
}

void CDlgKeys::print()
{
    CDlgReportGenerator generator(u"Keys"_s, u"List"_s, this);
    generator.SetText(u"Title"_s, windowTitle());
    generator.SetTable(u"List"_s, m_list);
    if (!generator.LoadLayout())
        generator.BuildListReport(windowTitle());
    generator.ShowReport();
}
