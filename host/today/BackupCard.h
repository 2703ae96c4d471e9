// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/keeping/BackupStanding.h"

#include <QFrame>

class ElidedLabel;
class KChip;

// The card of the last backup: when it was taken, whether it was proved, and the command that takes another.
class BackupCard : public QFrame
{
    Q_OBJECT

public:
    explicit BackupCard(QWidget *parent = nullptr);

    void show(const BackupStanding &standing);

Q_SIGNALS:
    void asked();

private:
    ElidedLabel *m_line;
    KChip *m_state;
};
