// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KStepArrows.h"

#include "suite/utility/entries/KEdit.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

KStepArrows::KStepArrows(KEdit *edit, QWidget *parent)
    : QWidget(parent)
    , m_edit(edit)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeArrow(Qt::UpArrow, u"بیشتر"_s, 1));
    column->addWidget(makeArrow(Qt::DownArrow, u"کمتر"_s, -1));
    setFixedHeight(edit->sizeHint().height());
    edit->installEventFilter(this);
}

QToolButton *KStepArrows::makeArrow(Qt::ArrowType arrow, const QString &name, int by)
{
    auto *button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(m_edit->accessibleName() + u' ' + name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    button->setMinimumHeight(0);
    button->setFixedWidth(m_edit->sizeHint().height() * 2 / 3);
    connect(button, &QToolButton::clicked, this, [this, by] { step(by); });
    return button;
}

void KStepArrows::step(int by)
{
    if (m_edit->isReadOnly())
        return;
    const bool starts = m_start != 0 && m_edit->integer() == 0;
    const double stepped = qBound(m_edit->minimum(), starts ? m_start : m_edit->number() + by, m_edit->maximum());
    // As typed, so that whatever follows from the number follows.
    m_edit->setText(QString::number(stepped, 'f', 0));
}

bool KStepArrows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isArrow = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
        if (isArrow && !(key->modifiers() & ~Qt::KeypadModifier)) {
            step(key->key() == Qt::Key_Up ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
