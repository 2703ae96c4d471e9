// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

// Shown while the program starts or stops: its name and what it is waiting for.
class SplashWindow final : public QWidget
{
    Q_OBJECT

public:
    explicit SplashWindow(QWidget *parent = nullptr);

    // Shows the text and paints at once; the user's input waits.
    void showWaiting(const QString &waitingFor);
    // The same with a button by which the user gives up waiting; takes the user's input. False once it was pressed.
    bool showWaitingOrGiveUp(const QString &waitingFor);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    // Done when it is shown first: by then the server begins beside it.
    void build();
    void showText(const QString &waitingFor);

    QLabel *m_waiting = nullptr;
    QPushButton *m_giveUp = nullptr;
    bool m_givenUp = false;
};
