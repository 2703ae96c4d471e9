// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAccessibleWidget>

// What a screen reader learns of a picture box: that it is a picture, what it shows, and that it can be pressed, which is the
// box's slot activate. Inside the library only.
class PictureBoxReader : public QAccessibleWidget
{
public:
    explicit PictureBoxReader(QWidget *box);

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
};
