// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class KChip;
class QLabel;
class QPushButton;

// A line of the first steps: its number or tick, what it is and what it is good for, and the button that leads to it.
class FirstStepRow : public QWidget
{
    Q_OBJECT

public:
    enum class State {
        Open,
        Next, // the one to take now, with the primary button
        Done
    };

    // number: from 1.
    FirstStepRow(int number, const QString &title, const QString &line, QWidget *parent = nullptr);

    State state() const { return m_state; }
    void setState(State state);
    QPushButton *button() const { return m_button; }

Q_SIGNALS:
    void chosen();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_number;
    QString m_title;
    QString m_text;
    State m_state = State::Open;
    KChip *m_mark;
    QLabel *m_name;
    QLabel *m_line;
    QLabel *m_doneWord;
    QPushButton *m_button;
};
