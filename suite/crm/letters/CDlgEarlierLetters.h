// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/letters/LetterFiling.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

#include <optional>

class KExtListCtrl;

// "نامه‌های قبلی": the newest letters that were filed, to take the words of one.
class TZCRM_EXPORT CDlgEarlierLetters : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgEarlierLetters(const QList<LetterFiling::Filed> &letters, QWidget *parent = nullptr);
    ~CDlgEarlierLetters() override;

    // Nothing where the user gave up, or none was filed, which is said.
    static std::optional<Letter> choose(QWidget *parent);

    std::optional<Letter> chosen() const;

protected:
    bool OnOK() override;

private:
    const QList<LetterFiling::Filed> m_letters;
    KExtListCtrl *m_list;
};
