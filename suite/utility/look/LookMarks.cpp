// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/LookMarks.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QWidget>

namespace {

constexpr char buttonMark[] = "tzButton";
constexpr char tallMark[] = "tzTall";
constexpr char cardMark[] = "tzCard";
constexpr char sharedMark[] = "tzShared";
constexpr char barMark[] = "tzBar";

void mark(QWidget *widget, const char *name, const QVariant &value)
{
    if (widget->property(name) == value)
        return;
    widget->setProperty(name, value);
    // A button keeps the size that it had asked for until its style changes.
    if (qobject_cast<QAbstractButton *>(widget)) {
        QEvent changed(QEvent::StyleChange);
        QCoreApplication::sendEvent(widget, &changed);
    }
    widget->updateGeometry();
    widget->update();
}

bool isMarked(const QWidget *widget, const char *name)
{
    return widget && widget->property(name).toBool();
}

}

void LookMarks::setButton(QWidget *button, Button kind)
{
    mark(button, buttonMark, int(kind));
}

LookMarks::Button LookMarks::button(const QWidget *widget)
{
    return widget ? static_cast<Button>(widget->property(buttonMark).toInt()) : Button::Normal;
}

void LookMarks::setTall(QWidget *widget)
{
    mark(widget, tallMark, true);
    for (QWidget *inner : widget->findChildren<QWidget *>()) {
        if (qobject_cast<QLineEdit *>(inner) || qobject_cast<QComboBox *>(inner) || qobject_cast<QPushButton *>(inner))
            mark(inner, tallMark, true);
    }
}

bool LookMarks::isTall(const QWidget *widget)
{
    return isMarked(widget, tallMark);
}

void LookMarks::setCard(QWidget *widget)
{
    // A plain widget's ground is painted by the style only with this.
    widget->setAttribute(Qt::WA_StyledBackground);
    mark(widget, cardMark, true);
}

bool LookMarks::isCard(const QWidget *widget)
{
    return isMarked(widget, cardMark);
}

void LookMarks::setShared(QWidget *widget)
{
    mark(widget, sharedMark, true);
}

bool LookMarks::isShared(const QWidget *widget)
{
    return isMarked(widget, sharedMark);
}

void LookMarks::setBar(QWidget *widget, Bar bar)
{
    widget->setAttribute(Qt::WA_StyledBackground);
    mark(widget, barMark, int(bar));
}

LookMarks::Bar LookMarks::bar(const QWidget *widget)
{
    return widget ? static_cast<Bar>(widget->property(barMark).toInt()) : Bar::None;
}
