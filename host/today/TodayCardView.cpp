// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayCardView.h"

#include "host/today/TodayRow.h"
#include "host/today/TodayTones.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int headHeight = 32;

}

TodayCardView::TodayCardView(const TodayCard &card, QWidget *parent)
    : QFrame(parent)
    , m_card(card)
    , m_count(new KChip(KChip::Kind::Neutral, {}, this))
    , m_all(new QPushButton(u"همه"_s, this))
    , m_word(new ElidedLabel(this))
{
    LookMarks::setCard(this);
    setAccessibleName(card.title);
    auto *title = new ElidedLabel(this);
    title->setText(card.title);
    LookFonts::apply(title, LookFonts::Use::Title);
    title->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    title->setMinimumHeight(LookSizes::scaled(headHeight));
    LookMarks::setButton(m_all, LookMarks::Button::Flat);
    m_all->setAccessibleName(u"همه، %1"_s.arg(card.title));
    m_all->setAutoDefault(true);
    LookFonts::applyHint(m_word);

    auto *head = new QHBoxLayout;
    head->setSpacing(LookSizes::unit);
    head->addWidget(title);
    head->addWidget(m_count);
    head->addWidget(m_word, 1);
    head->addWidget(m_all);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(0);
    column->addLayout(head);
    for (TodayRow *&row : m_rows) {
        row = new TodayRow(this);
        row->hide();
        column->addWidget(row);
        connect(row, &TodayRow::clicked, this, [this, row] {
            if (!row->line().table.isEmpty())
                Q_EMIT opened(row->line());
        });
    }
    column->addStretch(1);
    connect(m_all, &QPushButton::clicked, this, [this] { Q_EMIT allAsked(m_content.listTable, m_content.request); });
    show({}, {});
}

void TodayCardView::show(const TodayContent &content, const QString &unit)
{
    m_content = content;
    m_count->setText(QString::number(content.count));
    m_count->setKind(TodayTones::chip(content.tone));
    m_count->setVisible(content.count > 0);
    m_all->setVisible(!content.listTable.isEmpty() && content.count > 0);
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        TodayRow *row = m_rows[index];
        const bool isThere = static_cast<qsizetype>(index) < content.lines.size();
        if (isThere)
            row->setLine(content.lines.at(static_cast<qsizetype>(index)), unit);
        row->setVisible(isThere);
    }
    // The one line of an empty card stands in its middle.
    layout()->setContentsMargins(LookSizes::cardPadding, LookSizes::unit / 2, LookSizes::cardPadding, content.lines.isEmpty() ? LookSizes::unit / 2 : LookSizes::unit);
    m_word->setText(content.lines.isEmpty() ? m_card.emptyText : content.extent);
    updateGeometry();
}
