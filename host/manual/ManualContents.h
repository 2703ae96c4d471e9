// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTreeWidget>

class ManualPages;
class ManualSearch;

// The pages of the manual under the headings of their contents, or of those only that hold what is searched.
class ManualContents : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ManualContents(const ManualPages &pages, QWidget *parent = nullptr);

    // Shows the pages that hold all words, all pages where there are none; how many.
    int showMatching(const ManualSearch &search);
    // In the order shown.
    QStringList shownPages() const;
    // Marks the page as the one that is read.
    void setPage(const QString &page);

Q_SIGNALS:
    void chosen(const QString &page);

private:
    void tell(const QTreeWidgetItem *item);
    QList<QTreeWidgetItem *> entries() const;

    const ManualPages &m_pages;
};
