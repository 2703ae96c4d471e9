// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListFilterBox.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KFilterForm.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/KSettings.h"

#include <QGridLayout>
#include <QIcon>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString rowLimitSetting = u"iMaxRows"_s;
constexpr int defaultRowLimit = 1000;
constexpr int highestRowLimit = 10000;

}

KListFilterBox::KListFilterBox(const KListTraits &traits, QList<KListFilter> filters,
                               const std::function<void(QGridLayout *)> &addOwn, QWidget *page)
    : QGroupBox(traits.filterTitle, page)
{
    auto *grid = new QGridLayout(this);
    m_filters = new KFilterForm(std::move(filters), traits.makePerson, grid, this);
    addOwn(grid);
    for (const auto &[column, share] : traits.filterStretches)
        grid->setColumnStretch(column, share);
    if (traits.hasRowLimit || traits.hasSearchButton)
        buildSearchRow(traits, grid);
}

void KListFilterBox::buildSearchRow(const KListTraits &traits, QGridLayout *grid)
{
    m_searchRow = new QHBoxLayout;
    if (traits.hasRowLimit) {
        m_rowLimit = new KEdit(KEdit::Kind::Integer, this);
        m_rowLimit->setRange(traits.lowestRowLimit, highestRowLimit);
        m_rowLimit->setMaximumWidth(m_rowLimit->fontMetrics().averageCharWidth() * 14);
        addLabelled(m_searchRow, u"تعداد نمايش :"_s, m_rowLimit);
    }
    m_searchRow->addStretch(1);
    if (traits.hasSearchButton) {
        auto *button = new QPushButton(QIcon(u":/icons/search.svg"_s), u"جستجو"_s, this);
        button->setAccessibleName(button->text());
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, &KListFilterBox::searchAsked);
        m_searchRow->addWidget(button);
        // Enter in a filter searches.
        for (QLineEdit *edit : findChildren<QLineEdit *>())
            connect(edit, &QLineEdit::returnPressed, button, &QPushButton::click);
    }
    const bool ownLine = traits.searchColumn == 0;
    grid->addLayout(m_searchRow, grid->rowCount() - (ownLine ? 0 : 1), traits.searchColumn, 1, -1);
}

int KListFilterBox::rowLimit() const
{
    return m_rowLimit ? m_rowLimit->integer() : 0;
}

void KListFilterBox::setRowLimit(int rows)
{
    Q_ASSERT(m_rowLimit);
    m_rowLimit->setNumber(rows);
}

void KListFilterBox::readRowLimit(const QString &section)
{
    if (m_rowLimit)
        setRowLimit(qBound(static_cast<int>(m_rowLimit->minimum()), ReadSetting(section, rowLimitSetting, defaultRowLimit), highestRowLimit));
}

void KListFilterBox::writeRowLimit(const QString &section) const
{
    if (m_rowLimit && m_rowLimit->isEntryValid())
        WriteSetting(section, rowLimitSetting, rowLimit());
}

bool KListFilterBox::checkEntries()
{
    for (QLineEdit *line : findChildren<QLineEdit *>()) {
        QString error;
        if (const auto *edit = qobject_cast<KEdit *>(line))
            error = edit->entryError();
        else if (const auto *date = qobject_cast<KDateEdit *>(line))
            error = date->entryError();
        if (error.isEmpty())
            continue;
        g_pDlgWarning->Show(line->accessibleName() + u' ' + error, parentWidget());
        line->setFocus(Qt::TabFocusReason);
        return false;
    }
    if (const auto range = m_filters->backwardsRange()) {
        g_pDlgWarning->Show(range->message, parentWidget());
        range->line->setFocus(Qt::TabFocusReason);
        return false;
    }
    return true;
}
