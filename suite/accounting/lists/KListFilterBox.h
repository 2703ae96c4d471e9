// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListTraits.h"

#include <QGroupBox>

class FilterHead;
class KEdit;
class KFilterForm;
class QGridLayout;
class QHBoxLayout;

// The box above a list: its filters, the row limit and the search button.
//
// A box of more than one line can be folded into one that names the conditions. What is folded still asks them. It is open on a
// wide page and folded on a narrow one, until the user folds or opens it: that is kept, for each list.
class TZACCOUNTING_EXPORT KListFilterBox : public QGroupBox
{
    Q_OBJECT

public:
    // addOwn puts what the list shows besides its filters into the box's grid, behind them.
    KListFilterBox(const KListTraits &traits, QList<KListFilter> filters, const std::function<void(QGridLayout *)> &addOwn,
                   QWidget *page);

    KFilterForm &filters() const { return *m_filters; }
    // The line of the search button; null for a box without one and without a row limit.
    QHBoxLayout *searchRow() const { return m_searchRow; }

    // 0: no limit.
    int rowLimit() const;
    void setRowLimit(int rows);
    // The user's row limit for the lists of that section. An invalid limit is not kept.
    void readRowLimit(const QString &section);
    void writeRowLimit(const QString &section) const;

    bool isFoldable() const { return m_isFoldable; }
    bool isFolded() const;
    // As the user last left it, in that section of the settings; where nothing is kept, by the width of the page. From now on the
    // user's choice is kept there.
    void readFolding(const QString &section);
    // As the user does it: kept.
    void toggle();
    // What it asks for now is what the rows were asked with: it names that whenever it is folded, until the next time.
    void takeConditions();
    // What the list was asked for besides its filters, as a chip with a cross, whether the box is folded or not; empty: nothing.
    void setRequested(const QString &words);
    // Opens it for now, because something in it is wanted.
    void open();

    // Reports the first invalid entry to the user and moves to it; true when there is none. It would be left out of
    // the search, and the list would show what nobody asked for.
    bool checkEntries();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    // The search button, or Enter in an entry.
    void searchAsked();
    // The cross of what is asked besides the filters.
    void requestDropped();

protected:
    void changeEvent(QEvent *event) override;
    void initStyleOption(QStyleOptionGroupBox *option) const override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildSearchRow(const KListTraits &traits, QGridLayout *grid);
    void shareWidth(QGridLayout *grid) const;
    void addHead();
    void showConditions();
    void fold(bool folded);
    void foldByWidth();
    void takeMargins();
    void refuse(QWidget *entry, const QString &message);

    QWidget *m_body;
    FilterHead *m_head = nullptr; // none where the box has no title
    KFilterForm *m_filters;
    QHBoxLayout *m_searchRow = nullptr;
    KEdit *m_rowLimit = nullptr;
    bool m_isFoldable = false;
    bool m_isSettled = true; // the width of the page no longer decides
    QString m_section;
    QStringList m_conditions; // of the rows
};
