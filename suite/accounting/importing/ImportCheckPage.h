// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/importing/Importing.h"
#include "suite/utility/frame/CardPage.h"

class KExtListCtrl;
class QCheckBox;
class QLabel;
class QPushButton;

// The third step: what the dry run says of each row, and what becomes of twins.
class TZACCOUNTING_EXPORT ImportCheckPage : public CardPage
{
    Q_OBJECT

public:
    explicit ImportCheckPage(QWidget *parent = nullptr);

    void showChecked(const Importing::Checked &checked);
    // With the user's choices.
    const Importing::Checked &checked() const { return m_checked; }
    KExtListCtrl *list() const { return m_list; }

    // Takes the selected twin or leaves it out.
    void toggle();
    void takeAll(bool takes);

Q_SIGNALS:
    void twinWanted(qint32 key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();
    void updateButtons();
    ImportRow *selectedRow();

    Importing::Checked m_checked;
    KExtListCtrl *m_list;
    QCheckBox *m_onlyTroubled;
    QPushButton *m_toggle;
    QPushButton *m_takeAll;
    QPushButton *m_takeNone;
    QPushButton *m_showTwin;
    QLabel *m_counts;
};
