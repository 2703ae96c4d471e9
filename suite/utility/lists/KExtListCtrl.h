// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QTimer>
#include <QTreeView>

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/TzUtilityExport.h"

class OptionalColumns;
class QMenu;
class RowMenuMark;

// The suite's list: columns that the user sizes and orders, rows known by their record's key, one row selected at most.
// The order of the rows is the caller's; a click on a title only reports the column.
class TZUTILITY_EXPORT KExtListCtrl : public QTreeView
{
    Q_OBJECT

public:
    explicit KExtListCtrl(QWidget *parent = nullptr);
    ~KExtListCtrl() override;

    // Lays the columns out as passed and then as the user left them, when a setting name is known.
    void setColumns(const QVector<KListModel::Column> &columns);
    // Section of the user's settings that keeps widths and order, such as "AutomobilContracts\\List".
    void SetSettingName(const QString &name);

    KListModel *listModel() const { return m_model; }
    // Replaces all rows; no row is selected afterwards.
    void setRows(QVector<KListModel::Row> rows);
    bool removeKey(int key);
    int count() const;

    // -1 and 0 when no row is selected.
    int currentRow() const;
    int currentKey() const;
    // Selects and scrolls to the row; a row or key that does not exist clears the selection.
    void selectRow(int row);
    bool selectKey(int key);
    // Selects the row and brings that cell of it into view.
    void selectCell(int row, int column);

    // The shown text of a cell; a column by its key must be there.
    QString cellText(int row, int column) const;
    QString cellText(int row, QStringView column) const;
    // -1 when no column has the key.
    int columnOf(QStringView key) const;
    // Whether the list shows the column: not one of no width, nor an optional one that is off. A column by its key must be there.
    bool isColumnShown(int column) const;
    bool isColumnShown(QStringView column) const;
    // Switches an optional column on or off, as its entry in the menu of the titles does (right click, or the menu keys while no
    // row has a menu); kept with the layout. Nothing for another column.
    void setColumnShown(QStringView column, bool shown);
    bool hasOptionalColumns() const;
    // Adds the entries of that menu.
    void addOptionalColumnsTo(QMenu *menu);
    static QString optionalColumnsName();
    // See KListModel::setSortMark.
    void setSortMark(int column);

    // Whether the selected row has commands of its own: then a mark at its end, the menu key and Shift+F10 ask for their menu.
    // At first it has none.
    void setRowMenuOffered(bool offered);
    bool isRowMenuOffered() const;
    // What a screen reader calls the menu.
    static QString rowMenuName();

Q_SIGNALS:
    // Double click or Enter on a row.
    void rowActivated(int key);
    // Double click beside the rows.
    void emptyAreaActivated();
    // Right click on a row, which is selected by it.
    void rowRightClicked(int key);
    // 0: no row is selected any more.
    void currentKeyChanged(int key);
    void columnClicked(int column);
    // The user has switched an optional column.
    void shownColumnsChanged();
    // The selected row's menu is wanted, with its corner at that place of the screen.
    void rowMenuRequested(const QPoint &place);

protected:
    void drawRow(QPainter *painter, const QStyleOptionViewItem &options, const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    void reportKey();
    void followLayout();
    void fitColumns();
    void columnSwitched(int column, bool on);
    int leastWidth(int column) const;
    double figureWidth(int column) const;
    void requestRowMenu();
    void applyLayout();
    void saveLayout();
    void copyRow() const;

    KListModel *m_model;
    RowMenuMark *m_menuMark;
    OptionalColumns *m_optional;
    QString m_settingName;
    QTimer m_saveTimer;
    bool m_applyingLayout = false;
    bool m_userLayout = false; // widths are the user's, kept or just drawn
    int m_reportedKey = 0;
    int m_rightPressedKey = 0;
};
