// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractButton>
#include <QDate>
#include <QFrame>
#include <QVector>

class QLabel;

// A day of the month shown; drawn by itself, so that it looks the same under every style. Inside the library only.
class KDayButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit KDayButton(QWidget *parent);

    // An invalid date leaves the place empty.
    void setDay(const QDate &date, bool isSelected);
    QDate date() const { return m_date; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QDate m_date;
    bool m_isSelected = false;
};

// One Shamsi month to choose a day from: Saturday first, Fridays and today marked. Arrows step days and weeks, PageUp
// and PageDown (and the wheel) months, with Shift years, Home and End go to the month's ends, Enter chooses, Esc
// leaves. Inside the library only.
class KMonthPopup : public QFrame
{
    Q_OBJECT

public:
    explicit KMonthPopup(QWidget *parent);

    // Opens under the widget with that day selected.
    void openAt(const QWidget *anchor, const QDate &date);
    QDate selectedDate() const { return m_selected; }

Q_SIGNALS:
    void dateChosen(const QDate &date);
    void dateCleared();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void addHeader();
    void addDays();
    void addFooter();
    QAbstractButton *addStepButton(const QString &name, int months);
    void select(const QDate &date);
    void choose(const QDate &date);
    QDate dateForKey(const QKeyEvent *event) const;

    QDate m_selected;
    QLabel *m_title;
    QVector<KDayButton *> m_days;
};
