// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>

class QAction;

// A big button with its picture above its caption; it mirrors an action.
class StartButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit StartButton(QAction *action, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();
    bool looksEnabled() const;

    QAction *m_action;
};
