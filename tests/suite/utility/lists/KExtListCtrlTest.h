// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// A list of five rows in a window of its own, with settings of its own.
class KExtListCtrlTest : public QObject
{
protected:
    static inline const QVector<KListModel::Column> columns{
        {u"ردیف"_s, Qt::AlignCenter, 40},
        {u"فروشنده"_s, Qt::AlignRight, 80},
        {u"تاریخ عقد"_s, Qt::AlignCenter, 80, u"dateContract"_s, true},
        {u"مانده"_s, Qt::AlignRight, 100},
    };

    static QVector<KListModel::Row> rows(int count)
    {
        QVector<KListModel::Row> result;
        for (int i = 1; i <= count; ++i) {
            result.append({100 + i,
                           {{QString::number(i), i},
                            {u"شخص %1"_s.arg(i)},
                            {shamsiText(QDate(2026, 11, 20).addDays(i))},
                            {u"-%1"_s.arg(i), -double(i)}}});
        }
        return result;
    }

    static inline const QString settingName = u"AutomobilContracts\\List"_s;

    void keepSettings()
    {
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
    }

    void begin()
    {
        m_list = std::make_unique<KExtListCtrl>();
        m_list->setColumns(columns);
        m_list->setRows(rows(5));
        m_list->resize(700, 400);
        m_list->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    }

    void end() { m_list.reset(); }

    QPoint placeOf(int row) const
    {
        return m_list->visualRect(m_list->listModel()->index(row, 1)).center();
    }

    QPoint placeBesideRows() const
    {
        return {m_list->viewport()->width() / 2, m_list->viewport()->height() - 5};
    }

    // A cell of the first row, drawn alone.
    QImage drawn(int column, Qt::LayoutDirection direction) const
    {
        QStyleOptionViewItem option;
        option.initFrom(m_list.get());
        option.direction = direction;
        option.rect = QRect(0, 0, 150, 24);
        option.font = m_list->font();
        QImage image(150, 24, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        m_list->itemDelegate()->paint(&painter, option, m_list->listModel()->index(0, column));
        return image;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<KExtListCtrl> m_list;
};
