// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"

#include <QStackedWidget>

class QTabWidget;

// The tabbed work area: pages as closable tabs, and the start page while there is none. Ctrl+W closes the page in front,
// Ctrl+Tab and Ctrl+Shift+Tab go through them.
class WorkArea final : public QStackedWidget, public KTabHost
{
    Q_OBJECT

public:
    // Takes ownership of the start page.
    explicit WorkArea(QWidget *startPage, QWidget *parent = nullptr);
    ~WorkArea() override;

    void addPage(KDialogTabPage *page) override;
    int count() const;
    KDialogTabPage *page(int index) const;
    KDialogTabPage *currentPage() const;
    // Brings the first page of that type to the front; false when there is none.
    template <class Page>
    bool showExisting()
    {
        for (int index = 0; index < count(); ++index)
            if (qobject_cast<Page *>(page(index))) {
                setCurrent(index);
                return true;
            }
        return false;
    }

    void setCurrent(int index);
    // Notifies the page that it is closing, and destroys it. A page cannot be closed while a modal window is open: it may be the
    // one that waits for it.
    void closePage(int index);
    void closeCurrent();
    // Closes every page now; none is alive on return.
    void closeAll();

private:
    void step(int direction);
    void showStartPageIfEmpty();

    QTabWidget *m_tabs;
};
