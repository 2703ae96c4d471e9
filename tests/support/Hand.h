// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <functional>

// The actions of a user at the keyboard, on the widget that has the focus.
namespace Hand {

inline QWidget *focus()
{
    return QApplication::focusWidget();
}

inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    if (focus())
        QTest::keyClick(focus(), key, modifiers);
}

// Without the widget's having the focus, and by the texts alone, as an input method sends them.
inline void typeInto(QWidget &widget, const QString &text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

inline void type(const QString &text)
{
    for (const QChar c : text) {
        if (focus())
            QTest::sendKeyEvent(QTest::Click, focus(), static_cast<Qt::Key>(c.unicode()), QString(c), Qt::NoModifier);
    }
}

// The control that a screen reader would name so, among those that are shown.
template <class Widget>
Widget *named(QWidget *window, const QString &accessibleName)
{
    for (Widget *widget : window->findChildren<Widget *>()) {
        if (widget->accessibleName() == accessibleName && widget->isVisibleTo(window))
            return widget;
    }
    return nullptr;
}

// Acts in the next modal window once it has the focus. Whatever it leaves open is cancelled, so that a failed test ends.
inline void inNextWindow(const std::function<void(QDialog *)> &act)
{
    auto *timer = new QTimer(qApp);
    QWidget *before = QApplication::activeModalWidget();
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, before, act, rounds = 0]() mutable {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || dialog == before || !focus() || focus()->window() != dialog) {
            if (++rounds > 300)
                timer->deleteLater();
            return;
        }
        timer->stop();
        timer->deleteLater();
        act(dialog);
        if (QApplication::activeModalWidget() == dialog)
            dialog->reject();
    });
    timer->start(10);
}

}
