// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KMessageDialog.h"

#include <QWidget>

// The sign of a message beside its text: a round spot in the soft colour of its kind, with a picture in it. Inside the library only.
class MessageSign : public QWidget
{
    Q_OBJECT

public:
    explicit MessageSign(KMessageDialog::Kind kind, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    KMessageDialog::Kind m_kind;
};
