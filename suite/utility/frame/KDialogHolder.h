// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class KDialogTabPage;

// A modal window around one page: picking a row of a list from another window. Owns the page.
class TZUTILITY_EXPORT KDialogHolder : public KDialog
{
    Q_OBJECT

public:
    // The captions are those of createButtons.
    explicit KDialogHolder(KDialogTabPage *page, QWidget *parent = nullptr, const QString &okCaption = defaultOkCaption(),
                           const QString &cancelCaption = defaultCancelCaption());

    KDialogTabPage *page() const { return m_page; }
    // For a page that is kept here and not picked from: its own commands are what the window is for, and the OK button only closes.
    void okOnlyCloses();

    // Rejected at once, and nothing shown, when the page refuses access.
    int exec() override;
    void done(int result) override;

protected:
    bool OnOK() override;

private:
    KDialogTabPage *m_page;
    QDialogButtonBox *m_buttons;
    bool m_closed = false;
};
