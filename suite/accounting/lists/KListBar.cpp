// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListBar.h"

#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int quickWidth = 280;
constexpr int quickLeast = 140;

}

KListBar::KListBar(KExtListCtrl *list, QWidget *page)
    : QWidget(page)
    , m_list(list)
    , m_line(new QHBoxLayout(this))
    , m_quick(new QLineEdit(this))
    , m_found(new QLabel(this))
    , m_columns(new QPushButton(LookIcons::icon(u":/icons/table.svg"_s), u"ستون‌ها"_s, this))
{
    LookMarks::setTall(this);
    m_line->setContentsMargins(0, 0, 0, 0);
    m_line->setSpacing(LookSizes::unit);
    m_quick->setPlaceholderText(u"پالایش سریع در فهرست"_s);
    m_quick->setAccessibleName(m_quick->placeholderText());
    m_quick->setToolTip(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText));
    m_quick->setClearButtonEnabled(true);
    m_quick->addAction(LookIcons::icon(u":/icons/filter.svg"_s), QLineEdit::LeadingPosition);
    m_quick->setMinimumWidth(LookSizes::scaled(quickLeast));
    m_quick->setMaximumWidth(LookSizes::scaled(quickWidth));
    m_quick->installEventFilter(this);
    connect(m_quick, &QLineEdit::textChanged, this, &KListBar::narrow);
    LookFonts::apply(m_found, LookFonts::Use::Label);
    m_columns->setAccessibleName(m_columns->text());
    connect(m_columns, &QPushButton::clicked, this, [this] {
        m_list->showColumnMenu(m_columns->mapToGlobal(QPoint(m_columns->width(), m_columns->height())));
    });
    m_line->addWidget(m_quick, 1);
    m_line->addWidget(m_found);
    m_line->addStretch(1);
    m_line->addWidget(m_columns);
}

bool KListBar::isNarrowed() const
{
    return m_list->listModel()->isNarrowed();
}

void KListBar::widen()
{
    m_quick->clear();
}

void KListBar::narrow()
{
    m_list->narrow(m_quick->text());
    updateFound();
    Q_EMIT narrowed();
}

void KListBar::updateFound()
{
    const auto number = [](int rows) { return DToMoney(rows, 0); };
    m_found->setText(isNarrowed() ? u"%1 ردیف از %2"_s.arg(number(m_list->count()), number(m_list->listModel()->allRows())) : QString());
}

void KListBar::addView(QWidget *control)
{
    m_line->insertWidget(m_line->indexOf(m_columns), control);
}

bool KListBar::eventFilter(QObject *watched, QEvent *event)
{
    const auto isAlone = [](const QKeyEvent *key) { return (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier; };
    if (event->type() == QEvent::ShortcutOverride) {
        // Escape belongs to the words while there are some, not to the window.
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Escape && isAlone(key) && !m_quick->text().isEmpty()) {
            key->accept();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (isAlone(key) && takeKey(key->key()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool KListBar::takeKey(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        QKeyEvent move(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_list, &move);
        return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_list->currentKey() > 0)
            Q_EMIT rowActivated(m_list->currentKey());
        return true;
    case Qt::Key_Escape:
        if (m_quick->text().isEmpty())
            return false;
        widen();
        return true;
    default:
        return false;
    }
}
