// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QPushButton>

class KListFilterBox;
class QMenu;

// The filters that are kept for a list, to be asked for again, and the way to keep the one that it shows.
class TZACCOUNTING_EXPORT SavedFilterMenu : public QPushButton
{
    Q_OBJECT

public:
    // The list's section of the settings names it among those that filters are kept for; the form says who keeps them for all.
    SavedFilterMenu(KListFilterBox *filters, const QString &section, const QString &form, QWidget *page);

    // Shows the menu as the button does.
    void open();
    // Null until it was shown.
    QMenu *menuOfFilters() const { return m_menu; }

Q_SIGNALS:
    // One that is kept (SavedFilterText) is asked for.
    void chosen(const QString &filter);

private:
    void fill();
    void save();
    void manage();

    KListFilterBox *m_filters;
    QWidget *m_page;
    QString m_section;
    QString m_form;
    QMenu *m_menu = nullptr;
};
