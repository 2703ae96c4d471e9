// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/CDBSetting.h"

#include <QHash>
#include <QWidget>

#include <functional>

class QTabWidget;

// The tabbed work area: the start page, whose tab comes first and stays, and behind it pages as closable tabs, which are counted
// without it. Ctrl+W closes the page in front, Ctrl+Tab and Ctrl+Shift+Tab go through the pages, Alt+Home to the start page.
class WorkArea final : public QWidget, public KTabHost
{
    Q_OBJECT

public:
    // Takes ownership of the start page, which is named by its accessible name.
    explicit WorkArea(QWidget *startPage, QWidget *parent = nullptr);
    ~WorkArea() override;

    // Little: a page that asks for more than the screen has must not make the window larger than it.
    QSize minimumSizeHint() const override;

    void addPage(KDialogTabPage *page) override;
    // Brings the page of that kind that was used last to the front, read anew; opens one where there is none, or another besides. A
    // kind is what the pages that opener opens have in common. Titles are numbered from the second page of a kind on.
    void open(const QString &kind, bool another, const std::function<void()> &opener);
    int count() const;
    KDialogTabPage *page(int index) const;
    // Null while the start page is in front.
    KDialogTabPage *currentPage() const;
    void showStartPage();
    void setCurrent(int index);
    // Notifies the page that it is closing, and destroys it. A page cannot be closed while a modal window is open: it may be the
    // one that waits for it.
    void closePage(int index);
    void closeCurrent();
    // Closes every page now; none is alive on return.
    void closeAll();

private:
    // How a page was opened.
    struct Opened
    {
        QString kind;
        int number = 1; // among the open pages of the kind
        int used = 0;   // the highest is the page that was in front last
    };

    KDialogTabPage *lastUsed(const QString &kind) const;
    int freeNumber(const QString &kind) const;
    QString tabText(const KDialogTabPage *page) const;
    int tabOf(int index) const;
    int indexOf(const KDialogTabPage *page) const;
    void closeTab(int tab);
    void noteUse();
    void step(int direction);
    void addKeys();

    QWidget *m_startPage;
    QTabWidget *m_tabs;
    QHash<const QWidget *, Opened> m_opened;
    QString m_openingKind; // while an opener runs
    int m_uses = 0;
};
