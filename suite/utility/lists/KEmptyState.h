// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QWidget>

#include "suite/utility/TzUtilityExport.h"

class QAbstractItemView;
class QLabel;
class QPushButton;

// What a list without rows shows in their place: a picture, one sentence and, where something can be done about it, one button.
// Hidden at first. It stands in the middle of the list; the rest of the list stays what it is.
class TZUTILITY_EXPORT KEmptyState : public QWidget
{
    Q_OBJECT

public:
    explicit KEmptyState(QAbstractItemView *list);

    // Shows itself. icon is a path. Without a caption there is no button.
    void say(const QString &icon, const QString &sentence, const QString &caption = {}, const QString &buttonIcon = {});
    // The list has rows.
    void dismiss();
    QString sentence() const;
    // There only while it is seen, behind the list in the order of Tab. Its accessible name also names the list, which may have
    // a command of the same caption.
    QPushButton *button() const { return m_button; }

Q_SIGNALS:
    void pressed();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void dropButton();
    void makeButton();
    void place();

    QAbstractItemView *m_list;
    QIcon m_icon;
    QString m_caption; // of the button
    QString m_buttonIcon;
    QLabel *m_sentence;
    QPushButton *m_button = nullptr;
};
