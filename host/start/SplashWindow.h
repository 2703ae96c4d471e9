// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QLabel;

// Shown while the program starts or stops: its name and what it is waiting for.
class SplashWindow final : public QWidget
{
    Q_OBJECT

public:
    explicit SplashWindow(QWidget *parent = nullptr);

    // Shows the text and paints at once; the user's input waits.
    void showWaiting(const QString &waitingFor);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *m_waiting;
};
