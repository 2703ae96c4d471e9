// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListFilterBox.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/FilterHead.h"
#include "suite/accounting/lists/KFilterForm.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QStyleOptionGroupBox>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QString rowLimitSetting = u"iMaxRows"_s;
constexpr int defaultRowLimit = 1000;
constexpr int highestRowLimit = 10000;
const QString foldedSetting = u"iFilterFolded"_s;
constexpr int foldedHeight = 40;
constexpr int headMargin = 6; // above the head of a box that is open
// Of the width that the controls of a line take.
constexpr int firstShare = 3;
constexpr int share = 2;

}

KListFilterBox::KListFilterBox(const KListTraits &traits, QList<KListFilter> filters,
                               const std::function<void(QGridLayout *)> &addOwn, QWidget *page)
    : QGroupBox(traits.filterTitle, page)
    , m_body(new QWidget(this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(LookSizes::unit);
    auto *grid = new QGridLayout(m_body);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(LookSizes::unit);
    m_filters = new KFilterForm(std::move(filters), traits.makePerson, grid, this);
    addOwn(grid);
    shareWidth(grid);
    if (traits.hasRowLimit || traits.hasSearchButton)
        buildSearchRow(traits, grid);
    LookMarks::setTall(m_body);
    m_isFoldable = !title().isEmpty() && m_filters->hasManyLines();
    if (!title().isEmpty())
        addHead();
    if (m_isFoldable) {
        m_head->setFoldable();
        connect(m_head, &FilterHead::toggleAsked, this, &KListFilterBox::toggle);
    }
    column->addWidget(m_body);
    takeMargins();
}

// The controls take the room left, the first of a line the most: a person, a text.
void KListFilterBox::shareWidth(QGridLayout *grid) const
{
    for (const KListFilter &filter : m_filters->filters()) {
        const KListFilter::Place &place = filter.place;
        const bool stretches = filter.kind != KListFilter::Kind::Always && filter.kind != KListFilter::Kind::Flag;
        if (place.row >= 0 && stretches)
            grid->setColumnStretch(place.column + 1, place.column == 0 ? firstShare : share);
    }
}

void KListFilterBox::buildSearchRow(const KListTraits &traits, QGridLayout *grid)
{
    const bool ownLine = traits.searchColumn == 0;
    m_searchRow = new QHBoxLayout;
    m_searchRow->setSpacing(LookSizes::unit);
    if (!ownLine)
        m_searchRow->setContentsMargins(0, 0, LookSizes::gutter, 0);
    if (traits.hasRowLimit) {
        m_rowLimit = new KEdit(KEdit::Kind::Integer, m_body);
        m_rowLimit->setRange(traits.lowestRowLimit, highestRowLimit);
        m_rowLimit->setMaximumWidth(m_rowLimit->fontMetrics().averageCharWidth() * 14);
        LookFonts::apply(addLabelled(m_searchRow, u"تعداد نمايش :"_s, m_rowLimit), LookFonts::Use::Label);
    }
    m_searchRow->addStretch(1);
    if (traits.hasSearchButton) {
        auto *button = new QPushButton(LookIcons::icon(u":/icons/search.svg"_s), u"جستجو"_s, m_body);
        button->setAccessibleName(button->text());
        button->setToolTip(QKeySequence(Qt::Key_F5).toString(QKeySequence::NativeText));
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, &KListFilterBox::searchAsked);
        m_searchRow->addWidget(button);
        // Enter in a filter searches.
        for (QLineEdit *edit : findChildren<QLineEdit *>())
            connect(edit, &QLineEdit::returnPressed, button, &QPushButton::click);
    }
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

bool KListFilterBox::isFolded() const
{
    return m_head && m_head->isFolded();
}

void KListFilterBox::readFolding(const QString &section)
{
    m_section = section;
    if (!m_isFoldable)
        return;
    const int kept = ReadSetting(m_section, foldedSetting, -1);
    m_isSettled = kept >= 0;
    if (m_isSettled)
        fold(kept != 0);
    else
        foldByWidth();
}

// Not under the hands of who is typing in it.
void KListFilterBox::foldByWidth()
{
    if (!m_isSettled && !(focusWidget() && focusWidget()->hasFocus() && m_body->isAncestorOf(focusWidget())))
        fold(parentWidget()->width() < LookSizes::scaled(LookSizes::wide));
}

void KListFilterBox::toggle()
{
    if (!m_isFoldable)
        return;
    m_isSettled = true;
    fold(!isFolded());
    if (!m_section.isEmpty())
        WriteSetting(m_section, foldedSetting, isFolded() ? 1 : 0);
}

void KListFilterBox::open()
{
    if (!isFolded())
        return;
    m_isSettled = true;
    fold(false);
}

void KListFilterBox::addHead()
{
    m_head = new FilterHead(title(), this);
    connect(m_head, &FilterHead::requestDropped, this, &KListFilterBox::requestDropped);
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, m_head);
}

// A box without a title gets its head for this.
void KListFilterBox::setRequested(const QString &words)
{
    if (!m_head && words.isEmpty())
        return;
    if (!m_head)
        addHead();
    m_head->setRequested(words);
    takeMargins();
}

void KListFilterBox::takeConditions()
{
    m_conditions = m_filters->asked();
    showConditions();
}

void KListFilterBox::showConditions()
{
    if (isFolded())
        m_head->setConditions(m_conditions);
}

void KListFilterBox::fold(bool folded)
{
    if (folded == isFolded())
        return;
    if (folded && window()->focusWidget() && m_body->isAncestorOf(window()->focusWidget()))
        m_head->button()->setFocus(Qt::OtherFocusReason);
    m_head->setFolded(folded);
    m_body->setVisible(!folded);
    showConditions();
    takeMargins();
}

// The title is drawn by the head, which stands inside the card.
void KListFilterBox::initStyleOption(QStyleOptionGroupBox *option) const
{
    QGroupBox::initStyleOption(option);
    option->text.clear();
    option->subControls &= ~QStyle::SC_GroupBoxLabel;
}

// A group box asks the style for its margins again and again; these are the box's own.
void KListFilterBox::takeMargins()
{
    const int side = LookSizes::cardPadding;
    const int above = m_head ? headMargin : side;
    if (isFolded()) {
        const int line = qMax(0, LookSizes::scaled(foldedHeight) - m_head->sizeHint().height());
        setContentsMargins(side, line / 2, side, line - line / 2);
    } else {
        setContentsMargins(side, above, side, m_head ? LookSizes::unit + 2 : side);
    }
    updateGeometry();
}

void KListFilterBox::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    takeMargins();
}

void KListFilterBox::resizeEvent(QResizeEvent *event)
{
    QGroupBox::resizeEvent(event);
    takeMargins();
    foldByWidth();
}

QSize KListFilterBox::sizeHint() const
{
    return QWidget::sizeHint();
}

// An open box never makes the page wider than a small screen: the widest entries give way then.
QSize KListFilterBox::minimumSizeHint() const
{
    const QSize hint = QWidget::minimumSizeHint();
    return {qMin(hint.width(), LookSizes::scaled(LookSizes::narrow)), hint.height()};
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
        refuse(line, line->accessibleName() + u' ' + error);
        return false;
    }
    if (const auto range = m_filters->backwardsRange()) {
        refuse(range->line, range->message);
        return false;
    }
    return true;
}

void KListFilterBox::refuse(QWidget *entry, const QString &message)
{
    open();
    g_pDlgWarning->Show(message, parentWidget());
    entry->setFocus(Qt::TabFocusReason);
}
