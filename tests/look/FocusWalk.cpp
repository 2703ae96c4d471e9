// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/FocusWalk.h"

#include "suite/utility/lists/KListCard.h"
#include "tests/look/WindowParts.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// As wide as the ring; the caret and selected text lie within.
constexpr int ringWidth = 2;
constexpr int mostStops = 250;

bool isStop(const QWidget &widget, const QWidget &window)
{
    return widget.window() == &window && widget.isVisible() && widget.isEnabled() && !widget.focusProxy()
        && (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

QWidget *stopAfter(const QWidget &from, const QWidget &window)
{
    for (QWidget *next = from.nextInFocusChain(); next && next != &from; next = next->nextInFocusChain()) {
        if (isStop(*next, window))
            return next;
    }
    return nullptr;
}

// What is typed into shows its caret and its selected text besides; they may not be all that tells it from the others.
bool isTypedInto(const QWidget &widget)
{
    if (const auto *combo = qobject_cast<const QComboBox *>(&widget))
        return combo->isEditable();
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QAbstractSpinBox *>(&widget)
        || (qobject_cast<const QAbstractScrollArea *>(&widget) && !qobject_cast<const QAbstractItemView *>(&widget));
}

// A field within a control that draws the frame, and a list in its card.
QWidget &framed(QWidget &stop)
{
    QWidget *around = stop.parentWidget();
    const bool isPart = around && (qobject_cast<QComboBox *>(around) || qobject_cast<QAbstractSpinBox *>(around) || qobject_cast<KListCard *>(around));
    return isPart ? *around : stop;
}

QImage picture(QWidget &widget)
{
    QImage image = widget.grab().toImage();
    if (isTypedInto(widget)) {
        const qreal ratio = image.devicePixelRatio();
        image.setDevicePixelRatio(1);
        const int ring = qRound(ringWidth * ratio);
        QPainter(&image).fillRect(image.rect().adjusted(ring, ring, -ring, -ring), Qt::black);
    }
    return image;
}

const QGroupBox *cardOf(const QWidget &widget)
{
    for (const QWidget *around = widget.parentWidget(); around && !around->isWindow(); around = around->parentWidget()) {
        if (const auto *card = qobject_cast<const QGroupBox *>(around))
            return card;
    }
    return nullptr;
}

bool isAtTheFoot(const QWidget &widget)
{
    for (const QWidget *around = widget.parentWidget(); around; around = around->parentWidget()) {
        if (qobject_cast<const QDialogButtonBox *>(around))
            return true;
    }
    return false;
}

bool comesBefore(const QWidget &one, const QWidget &other, const QWidget &card)
{
    const QRect first(one.mapTo(&card, QPoint()), one.size());
    const QRect second(other.mapTo(&card, QPoint()), other.size());
    const int middle = first.center().y();
    const int otherMiddle = second.center().y();
    const bool sameLine = (middle > second.top() && middle < second.bottom()) || (otherMiddle > first.top() && otherMiddle < first.bottom());
    if (!sameLine)
        return first.top() < second.top();
    return card.isRightToLeft() ? first.center().x() >= second.center().x() : first.center().x() <= second.center().x();
}

class Walk
{
public:
    explicit Walk(QWidget &window)
        : m_window(window)
    {
    }

    QStringList go()
    {
        QWidget *first = stopAfter(m_window, m_window);
        if (!first)
            return {};
        // A window shows where the focus is only once a key has moved it.
        first->setFocus(Qt::TabFocusReason);
        QTest::keyClick(first, Qt::Key_Backtab, Qt::ShiftModifier);
        first->setFocus(Qt::TabFocusReason);
        QWidget *at = QApplication::focusWidget();
        for (int steps = 0; at && steps < mostStops; ++steps) {
            if (m_stops.contains(at))
                break;
            m_stops.append(at);
            at = leave(*at);
        }
        lookAtOrder();
        return m_faults;
    }

private:
    void add(const QString &fault) { m_faults.append(fault); }

    // The next stop, once the two pictures of this one have been compared.
    QWidget *leave(QWidget &stop)
    {
        QWidget &shown = framed(stop);
        const QImage with = picture(shown);
        QTest::keyClick(&stop, Qt::Key_Tab);
        // Hours and minutes of a time are stops of their own within the field.
        const auto *time = qobject_cast<const QDateTimeEdit *>(&stop);
        for (int part = 1; time && part < time->sectionCount() && QApplication::focusWidget() == &stop; ++part)
            QTest::keyClick(&stop, Qt::Key_Tab);
        if (QApplication::focusWidget() == &stop)
            goOnFrom(stop);
        QWidget *next = QApplication::focusWidget();
        if (next == &stop || !next || next->window() != &m_window)
            return nullptr;
        if (with == picture(shown))
            add(u"%1 looks the same with the focus"_s.arg(WindowParts::name(shown)));
        return next;
    }

    // In a grid of lines Tab goes from cell to cell; from anything else it leads on.
    void goOnFrom(QWidget &stop)
    {
        QWidget *next = stopAfter(stop, m_window);
        if (!next)
            return;
        if (!qobject_cast<QAbstractItemView *>(&stop))
            add(u"Tab does not lead on from %1"_s.arg(WindowParts::name(stop)));
        next->setFocus(Qt::TabFocusReason);
    }

    void lookAtOrder()
    {
        for (qsizetype i = 1; i < m_stops.size(); ++i) {
            const QWidget &before = *m_stops[i - 1];
            const QWidget &after = *m_stops[i];
            if (isAtTheFoot(before) && !isAtTheFoot(after))
                add(u"%1 comes after the buttons at the foot"_s.arg(WindowParts::name(after)));
            const QGroupBox *card = cardOf(before);
            if (card && card == cardOf(after) && !before.isAncestorOf(&after) && !comesBefore(before, after, *card))
                add(u"%1 comes before %2 by Tab, and stands behind it"_s.arg(WindowParts::name(before), WindowParts::name(after)));
        }
    }

    QWidget &m_window;
    QList<QWidget *> m_stops;
    QStringList m_faults;
};

}

QStringList FocusWalk::faults(QWidget &window)
{
    return Walk(window).go();
}
