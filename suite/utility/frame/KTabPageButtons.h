// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

#include "suite/utility/TzUtilityExport.h"

class QAbstractButton;
class QButtonGroup;
class QHBoxLayout;
class QStackedWidget;

// A row of buttons over a stack of pages, one of them pressed. Ctrl+Tab and Ctrl+PageDown go to the next page,
// Ctrl+Shift+Tab and Ctrl+PageUp to the one before, from anywhere in the window; on the buttons the arrow keys do.
class TZUTILITY_EXPORT KTabPageButtons : public QWidget
{
    Q_OBJECT

public:
    explicit KTabPageButtons(QWidget *parent = nullptr);

    // Takes ownership of the page and returns its position. The first page becomes the current one.
    int addPage(QWidget *page, const QString &title);
    int count() const;
    QWidget *page(int index) const;
    QAbstractButton *button(int index) const;
    void setPageTitle(int index, const QString &title);
    // A page that is not enabled cannot be made current; when it is the current one, the next enabled one becomes so.
    void setPageEnabled(int index, bool enabled);
    // A page that is not shown is not enabled and has no button in the row, as if it had not been added.
    void setPageShown(int index, bool shown);

    // Adds a widget at the far end of the row of buttons.
    void addAtEnd(QWidget *widget);

    // -1 without pages.
    int currentIndex() const;
    QWidget *currentPage() const;

public Q_SLOTS:
    // Does nothing for a position that does not exist or is not enabled.
    void setCurrentIndex(int index);
    void nextPage();
    void previousPage();

Q_SIGNALS:
    void currentChanged(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addKeys(QKeyCombination keys, void (KTabPageButtons::*work)());
    void placeInTabOrder(QWidget *button, int index);
    void step(int direction);

    QButtonGroup *m_buttons;
    QWidget *m_bar;
    QHBoxLayout *m_row;
    QStackedWidget *m_pages;
};
