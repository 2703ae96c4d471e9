// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualContents.h"

#include "host/manual/ManualPages.h"
#include "host/manual/ManualSearch.h"

#include <QHeaderView>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int pageRole = Qt::UserRole;

QString pageOf(const QTreeWidgetItem *item)
{
    return item ? item->data(0, pageRole).toString() : QString();
}

}

ManualContents::ManualContents(const ManualPages &pages, QWidget *parent)
    : QTreeWidget(parent)
    , m_pages(pages)
{
    setAccessibleName(u"فهرست راهنما"_s);
    setColumnCount(1);
    setHeaderHidden(true);
    setTextElideMode(Qt::ElideRight);
    QTreeWidgetItem *group = nullptr;
    for (const ManualPages::Entry &entry : pages.contents()) {
        if (!group || group->text(0) != entry.group) {
            group = new QTreeWidgetItem(this, {entry.group});
            group->setFlags(Qt::ItemIsEnabled);
            group->setExpanded(true);
        }
        auto *item = new QTreeWidgetItem(group, {entry.title});
        item->setData(0, pageRole, entry.page);
        item->setToolTip(0, entry.title);
    }
    connect(this, &QTreeWidget::currentItemChanged, this, &ManualContents::tell);
    connect(this, &QTreeWidget::itemClicked, this, &ManualContents::tell);
}

void ManualContents::tell(const QTreeWidgetItem *item)
{
    if (const QString page = pageOf(item); !page.isEmpty())
        Q_EMIT chosen(page);
}

QList<QTreeWidgetItem *> ManualContents::entries() const
{
    QList<QTreeWidgetItem *> items;
    for (int group = 0; group < topLevelItemCount(); ++group) {
        for (int row = 0; row < topLevelItem(group)->childCount(); ++row)
            items.append(topLevelItem(group)->child(row));
    }
    return items;
}

int ManualContents::showMatching(const ManualSearch &search)
{
    int found = 0;
    for (QTreeWidgetItem *item : entries()) {
        const bool holds = search.isEmpty() || search.isIn(m_pages.words(pageOf(item)));
        item->setHidden(!holds);
        found += holds ? 1 : 0;
    }
    for (int row = 0; row < topLevelItemCount(); ++row) {
        QTreeWidgetItem *group = topLevelItem(row);
        bool any = false;
        for (int child = 0; child < group->childCount(); ++child)
            any = any || !group->child(child)->isHidden();
        group->setHidden(!any);
    }
    return found;
}

QStringList ManualContents::shownPages() const
{
    QStringList pages;
    for (const QTreeWidgetItem *item : entries()) {
        if (!item->isHidden())
            pages.append(pageOf(item));
    }
    return pages;
}

void ManualContents::setPage(const QString &page)
{
    const QSignalBlocker silent(this);
    setCurrentItem(nullptr);
    for (QTreeWidgetItem *item : entries()) {
        if (pageOf(item) == page)
            setCurrentItem(item);
    }
    // Rows are painted beyond their items.
    viewport()->update();
}
