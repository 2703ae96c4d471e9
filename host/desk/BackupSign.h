// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/keeping/BackupStanding.h"

#include <QToolButton>

// How the backups stand, in the status line: quiet while all is well, in danger while it is not. Pressed, it leads to the backups.
class BackupSign : public QToolButton
{
    Q_OBJECT

public:
    // Hidden until something is known.
    explicit BackupSign(QWidget *parent = nullptr);

    void show(const BackupStanding &state);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isBad = false;
};
