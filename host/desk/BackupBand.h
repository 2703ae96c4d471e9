// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

// The band across a main window that shows a backup, so that nobody takes it for the office of today.
class BackupBand : public QLabel
{
    Q_OBJECT

public:
    explicit BackupBand(const QString &text, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
