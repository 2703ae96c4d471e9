// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class KEdit;
struct HostOptions;

// Asks for the password of the account on the office server.
class CDlgServerPassword : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgServerPassword(const HostOptions &options, QWidget *parent = nullptr);

    QString password() const;

private:
    KEdit *m_password;
};
