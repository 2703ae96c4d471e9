// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

#include <functional>
#include <optional>

class KEdit;

// Asks why something is made void or taken back, and does it.
class TZTREASURY_EXPORT CDlgVoiding : public KDialog
{
    Q_OBJECT

public:
    // The reason is in standard form and not empty. What a work throws as KAccountingError is shown, and the window stays.
    using Work = std::function<void(const QString &reason)>;

    // title: the command, as "ابطال دریافت". text: what will happen, in a sentence or two.
    CDlgVoiding(const QString &title, const QString &text, const Work &work, QWidget *parent = nullptr);
    ~CDlgVoiding() override;

    // True when the work was done.
    static bool run(const QString &title, const QString &text, const Work &work, QWidget *parent);
    // The reason alone, for a caller that does the work afterwards; nothing when the user gave up.
    static std::optional<QString> ask(const QString &title, const QString &text, QWidget *parent);

    bool OnOK() override;

private:
    bool refuse(const QString &why);

    Work m_work;
    KEdit *m_reason;
};
