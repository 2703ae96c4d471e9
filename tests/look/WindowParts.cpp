// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/WindowParts.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

bool isOneControl(const QWidget &widget)
{
    if (qobject_cast<const QScrollArea *>(&widget))
        return false;
    return qobject_cast<const QAbstractScrollArea *>(&widget) || qobject_cast<const QAbstractSpinBox *>(&widget)
        || qobject_cast<const QComboBox *>(&widget) || qobject_cast<const QScrollBar *>(&widget)
        || qobject_cast<const QMenuBar *>(&widget) || qobject_cast<const QTabBar *>(&widget);
}

void collect(const QWidget &within, QList<QWidget *> &found)
{
    for (QObject *child : within.children()) {
        auto *widget = qobject_cast<QWidget *>(child);
        if (!widget || widget->isWindow() || !widget->isVisible())
            continue;
        found.append(widget);
        if (!isOneControl(*widget))
            collect(*widget, found);
    }
}

QString calledByUsers(const QWidget &widget)
{
    if (!widget.accessibleName().isEmpty())
        return widget.accessibleName();
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return button->text();
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return label->text();
    if (const auto *box = qobject_cast<const QGroupBox *>(&widget))
        return box->title();
    return widget.objectName();
}

}

QList<QWidget *> WindowParts::of(const QWidget &window)
{
    QList<QWidget *> found;
    collect(window, found);
    return found;
}

QString WindowParts::name(const QWidget &widget)
{
    const QString type = QString::fromLatin1(widget.metaObject()->className());
    const QString called = shortened(calledByUsers(widget));
    if (!called.isEmpty())
        return u"%1 «%2»"_s.arg(type, called);
    const QWidget *around = widget.parentWidget();
    return around && !widget.isWindow() ? u"%1 in %2"_s.arg(type, name(*around)) : type;
}

bool WindowParts::isFigure(const QString &text)
{
    static const QRegularExpression figure(u"^[\\d\\s,./:()%+\\-\\x{066B}\\x{066C}\\x{200E}\\x{200F}]*$"_s);
    static const QRegularExpression digit(u"\\d"_s);
    return figure.match(text).hasMatch() && digit.match(text).hasMatch();
}

QString WindowParts::shortened(const QString &text)
{
    constexpr int enough = 40;
    const QString line = text.simplified();
    return line.size() > enough ? line.left(enough) + u"…"_s : line;
}

QString WindowParts::tipAt(QWidget &widget, const QPoint &position)
{
    QToolTip::hideText();
    QHelpEvent resting(QEvent::ToolTip, position, widget.mapToGlobal(position));
    QApplication::sendEvent(&widget, &resting);
    const QString shown = QToolTip::isVisible() ? QToolTip::text() : QString();
    QToolTip::hideText();
    return shown;
}
