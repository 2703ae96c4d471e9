// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KEmptyState.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

namespace {

constexpr int pictureSize = 48;

}

// A child of the list, not of its viewport, which would move it when it scrolls.
KEmptyState::KEmptyState(QAbstractItemView *list)
    : QWidget(list)
    , m_list(list)
    , m_sentence(new QLabel(this))
{
    m_sentence->setAlignment(Qt::AlignCenter);
    m_sentence->setWordWrap(true);
    LookFonts::apply(m_sentence, LookFonts::Use::Text);
    m_sentence->setForegroundRole(QPalette::WindowText);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, LookSizes::scaled(pictureSize) + LookSizes::unit, 0, 0);
    column->setSpacing(LookSizes::sideGap);
    column->addWidget(m_sentence);
    list->viewport()->installEventFilter(this);
    hide();
}

void KEmptyState::say(const QString &icon, const QString &sentence, const QString &caption, const QString &buttonIcon)
{
    m_icon = LookIcons::icon(icon);
    m_sentence->setText(sentence);
    if (m_caption != caption)
        dropButton();
    m_caption = caption;
    m_buttonIcon = buttonIcon;
    show();
    raise();
    if (isVisible())
        makeButton();
    place();
    update();
}

void KEmptyState::dismiss()
{
    dropButton();
    m_caption.clear();
    hide();
}

// It must not take the focus out of the list, and may be the one whose click led here.
void KEmptyState::dropButton()
{
    if (!m_button)
        return;
    if (m_button->hasFocus())
        m_list->setFocus(Qt::OtherFocusReason);
    m_button->hide();
    m_button->setParent(nullptr);
    m_button->deleteLater();
    m_button = nullptr;
}

void KEmptyState::makeButton()
{
    if (m_button || m_caption.isEmpty())
        return;
    m_button = new QPushButton(LookIcons::icon(m_buttonIcon), m_caption, this);
    m_button->setAccessibleName(m_caption + u' ' + m_list->accessibleName());
    m_button->setAutoDefault(true);
    LookMarks::setTall(m_button);
    static_cast<QVBoxLayout *>(layout())->addWidget(m_button, 0, Qt::AlignHCenter);
    setTabOrder(m_list, m_button);
    connect(m_button, &QPushButton::clicked, this, &KEmptyState::pressed);
    m_button->show();
}

QString KEmptyState::sentence() const
{
    return m_sentence->text();
}

void KEmptyState::place()
{
    const QRect room = m_list->viewport()->geometry();
    // A label that may wrap asks for less than its line.
    const int line = m_sentence->fontMetrics().horizontalAdvance(m_sentence->text()) + LookSizes::unit;
    const int width = qMin(qMax(sizeHint().width(), line), room.width());
    QRect place(0, 0, width, qMax(heightForWidth(width), minimumSizeHint().height()));
    place.moveCenter(room.center());
    // Where there is not the height for all of it, the sentence and the button go before the picture.
    if (place.height() > room.height())
        place.moveBottom(room.bottom());
    setGeometry(place);
}

// Its own size is known for good once it is seen, in the font it is seen in.
bool KEmptyState::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::Show)
        makeButton();
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest)
        place();
    return handled;
}

bool KEmptyState::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && !isHidden())
        place();
    return QWidget::eventFilter(watched, event);
}

// A double click here is one beside the rows.
void KEmptyState::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointF point = m_list->viewport()->mapFromGlobal(event->globalPosition());
    QMouseEvent besideRows(event->type(), point, event->globalPosition(), event->button(), event->buttons(), event->modifiers());
    QCoreApplication::sendEvent(m_list->viewport(), &besideRows);
}

void KEmptyState::paintEvent(QPaintEvent *)
{
    const int size = LookSizes::scaled(pictureSize);
    QPainter painter(this);
    m_icon.paint(&painter, QRect((width() - size) / 2, 0, size, size));
}
