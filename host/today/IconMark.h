// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QWidget>

// A picture of the program beside the words of a card, in the colours of the look in use, also after it changes.
class IconMark final : public QWidget
{
    Q_OBJECT

public:
    explicit IconMark(const QString &icon, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QIcon m_icon;
};
