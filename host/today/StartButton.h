// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>

class QAction;

// A launcher of the start page: the picture of an action and its caption beside it.
class StartButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit StartButton(QAction *action, QWidget *parent = nullptr);

    QAction *action() const { return m_action; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();
    bool looksEnabled() const;

    QAction *m_action;
};
