// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class FormGrid;
class KEdit;

// The logged-in user changes their own password and gives the old one as proof of identity.
class CDlgChangePassword : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgChangePassword(QWidget *parent = nullptr);

protected:
    bool OnOK() override;

private:
    KEdit *addPassword(FormGrid *grid, const QString &caption);

    KEdit *m_old;
    KEdit *m_new;
    KEdit *m_repeated;
};
