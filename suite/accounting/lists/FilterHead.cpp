// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/FilterHead.h"

#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// Of a condition; a longer one ends in "…" and has a tip.
constexpr qsizetype longestChip = 40;
constexpr int dropIcon = 14;

QString shortened(const QString &condition)
{
    return condition.size() <= longestChip ? condition : condition.first(longestChip - 1) + u'…';
}

}

FilterHead::FilterHead(const QString &title, QWidget *box)
    : QWidget(box)
    , m_line(new QHBoxLayout(this))
    , m_title(new QLabel(title, this))
    , m_open(new QLabel(u"<a href=\"#\" style=\"text-decoration: none\">باز کردن</a>"_s, this))
    , m_more(new KChip(KChip::Kind::Neutral, {}, this))
    , m_requested(new KChip(KChip::Kind::Info, {}, this))
    , m_drop(new QToolButton(this))
{
    m_line->setContentsMargins(0, 0, 0, 0);
    m_line->setSpacing(LookSizes::unit);
    LookFonts::apply(m_title, LookFonts::Use::Title);
    LookFonts::apply(m_open, LookFonts::Use::Chip);
    // The button beside it is there for the keyboard.
    m_open->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    connect(m_open, &QLabel::linkActivated, this, &FilterHead::toggleAsked);
    m_drop->setAutoRaise(true);
    m_drop->setIcon(LookIcons::icon(u":/icons/close.svg"_s));
    m_drop->setIconSize(QSize(LookSizes::scaled(dropIcon), LookSizes::scaled(dropIcon)));
    m_drop->setFocusPolicy(Qt::StrongFocus);
    m_drop->setAccessibleName(u"برداشتن شرط"_s);
    connect(m_drop, &QToolButton::clicked, this, &FilterHead::requestDropped);
    m_requested->hide();
    m_drop->hide();
    m_line->addWidget(m_title);
    m_line->addWidget(m_requested);
    m_line->addWidget(m_drop);
    m_line->addWidget(m_more);
    m_line->addWidget(m_open);
    m_line->addStretch(1);
    m_more->hide();
    m_open->hide();
}

void FilterHead::setFoldable()
{
    m_button = new QToolButton(this);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::TabFocus);
    m_button->setAccessibleName(u"باز و بسته کردن فيلتر"_s);
    m_button->setToolTip(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F).toString(QKeySequence::NativeText));
    m_button->setIconSize(QSize(LookSizes::scaled(LookSizes::iconSize), LookSizes::scaled(LookSizes::iconSize)));
    connect(m_button, &QToolButton::clicked, this, &FilterHead::toggleAsked);
    m_line->addWidget(m_button);
    setFolded(false);
}

void FilterHead::setFolded(bool folded)
{
    m_folded = folded;
    m_button->setIcon(LookIcons::icon(folded ? u":/icons/chevron.svg"_s : u":/icons/fold.svg"_s));
    m_button->setAccessibleDescription(folded ? u"بسته است"_s : u"باز است"_s);
    m_open->setVisible(folded);
    fitChips();
}

void FilterHead::setRequested(const QString &words)
{
    m_requested->setText(shortened(words));
    m_requested->setToolTip(words);
    m_drop->setToolTip(u"برداشتن شرط «%1»"_s.arg(words));
    m_requested->setVisible(!words.isEmpty());
    m_drop->setVisible(!words.isEmpty());
    fitChips();
}

void FilterHead::setConditions(const QStringList &conditions)
{
    if (conditions == m_conditions)
        return;
    m_conditions = conditions;
    for (KChip *chip : m_chips)
        delete chip;
    m_chips.clear();
    for (const QString &condition : conditions) {
        auto *chip = new KChip(KChip::Kind::Info, shortened(condition), this);
        if (chip->text() != condition)
            chip->setToolTip(condition);
        m_chips.push_back(chip);
        m_line->insertWidget(m_line->indexOf(m_drop) + static_cast<int>(m_chips.size()), chip);
    }
    fitChips();
}

// How wide the line is with so many of the chips.
int FilterHead::widthWith(qsizetype count) const
{
    const int gap = m_line->spacing();
    int width = m_title->sizeHint().width() + gap + m_open->sizeHint().width() + gap + m_button->sizeHint().width();
    if (!m_requested->isHidden())
        width += gap + m_requested->sizeHint().width() + gap + m_drop->sizeHint().width();
    for (qsizetype i = 0; i < count; ++i)
        width += gap + m_chips[static_cast<size_t>(i)]->sizeHint().width();
    return count < m_conditions.size() ? width + gap + m_more->sizeHint().width() : width;
}

// As many as there is room for, the others counted.
void FilterHead::fitChips()
{
    if (!m_button)
        return;
    qsizetype count = m_folded ? m_conditions.size() : 0;
    while (count > 0 && widthWith(count) > width())
        --count;
    const qsizetype left = m_folded ? m_conditions.size() - count : 0;
    m_more->setText(u"+%1"_s.arg(left));
    m_more->setToolTip(m_conditions.mid(count).join(u'\n'));
    m_more->setVisible(left > 0);
    for (qsizetype i = 0; i < m_conditions.size(); ++i)
        m_chips[static_cast<size_t>(i)]->setVisible(i < count);
}

// However many conditions there are, they do not widen the page.
QSize FilterHead::sizeHint() const
{
    return {m_title->sizeHint().width(), qMax(m_line->sizeHint().height(), m_title->sizeHint().height())};
}

QSize FilterHead::minimumSizeHint() const
{
    return sizeHint();
}

void FilterHead::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitChips();
}
