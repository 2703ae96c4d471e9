// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/NamedWidget.h"

#include <QAbstractButton>
#include <QWidget>
#include <QtTest>

// Finds the controls of a window as a person or a screen reader does: by what they are called.
namespace FormDriver {

template <class Control>
Control *field(QWidget *window, const QString &name)
{
    return named<Control>(*window, name);
}

inline QAbstractButton *button(QWidget *window, const QString &caption)
{
    for (QAbstractButton *control : window->findChildren<QAbstractButton *>()) {
        if (control->text() == caption)
            return control;
    }
    return nullptr;
}

inline void click(QWidget *window, const QString &caption)
{
    QAbstractButton *found = button(window, caption);
    QVERIFY2(found, qPrintable(caption));
    QVERIFY2(found->isEnabled(), qPrintable(caption));
    QTest::mouseClick(found, Qt::LeftButton);
}

// Of the parts that a control is made of, only the control itself needs a name.
inline bool everyInputHasAName(QWidget *window)
{
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        const bool isInput = widget->inherits("QLineEdit") || widget->inherits("QComboBox")
            || (widget->inherits("QAbstractItemView") && !widget->inherits("QHeaderView"));
        const bool isPart = widget->parentWidget()->inherits("QComboBoxPrivateContainer");
        if (isInput && !isPart && widget->accessibleName().isEmpty()) {
            qWarning() << "no accessible name:" << widget;
            return false;
        }
    }
    return true;
}

}
