// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QTimer>
#include <QTreeView>

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/ListSettings.h"
#include "suite/utility/TzUtilityExport.h"

class OptionalColumns;
class QMenu;
class RowMenuMark;

// The suite's list: columns that the user sizes and orders, rows known by their record's key, one current row at most.
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
    // Whose layout it is, of those who share the computer; before the setting name. Empty, as at first: everybody's.
    void setLayoutUser(const QString &login) { m_settings.setUser(login); }

    KListModel *listModel() const { return m_model; }
    // Replaces all rows; no row is selected afterwards.
    void setRows(QVector<KListModel::Row> rows);
    // See KListModel::appendRows. What is selected and in sight stays so.
    void appendRows(QVector<KListModel::Row> rows);
    bool removeKey(int key);
    // Those in sight.
    int count() const;
    // Leaves only the rows that hold the words of the text in a shown column, or in one of no width (KListModel::narrow). The selected row stays so while it is
    // in sight; else the first one is selected.
    void narrow(const QString &text);

    // -1 and 0 when no row is selected.
    int currentRow() const;
    int currentKey() const;
    // From now on further rows can be marked, with Ctrl and Shift, for their sums alone: commands are about the current one.
    void setSeveralMarkable();
    // The rows that are marked, the current one among them, from the first.
    QList<int> markedRows() const;
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
    // Whether the list shows the column: not one of no width, nor one that is off. A column by its key must be there.
    bool isColumnShown(int column) const;
    bool isColumnShown(QStringView column) const;
    // Switches an optional column on or off, as its entry in the menu of the titles does (right click, or the menu keys while no
    // row has a menu); kept with the layout. Nothing for another column.
    void setColumnShown(QStringView column, bool shown);
    bool hasOptionalColumns() const;
    // From now on every column that has a key can be switched, and the menu of the titles also offers their order, which the owner's
    // window asks for, and the way back to how the list was at first.
    void setColumnsArrangeable();
    bool isColumnSwitchable(int column) const;
    // The columns from first to last as the list shows them, also those that are off.
    QList<int> columnOrder() const;
    // As the user moves and switches them: kept. Columns that the order does not name stand behind it; of those in it the list shows only
    // the ones in shown.
    void arrangeColumns(const QList<int> &order, const QList<int> &shown);
    // Columns, order and widths as they were at first.
    void resetColumns();
    // That menu, with its upper right corner at that place of the screen.
    void showColumnMenu(const QPoint &place);
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
    // Other rows are marked.
    void marksChanged();
    void columnClicked(int column);
    // The user has switched a column.
    void shownColumnsChanged();
    // A window with the order of the columns is wanted.
    void columnOrderAsked();
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
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void reportKey();
    void narrowModel();
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
    ListSettings m_settings;
    OptionalColumns *m_optional;
    QTimer m_saveTimer;
    bool m_applyingLayout = false;
    bool m_userLayout = false; // widths are the user's, kept or just drawn
    QString m_narrowedBy;
    bool m_narrowing = false;
    int m_reportedKey = 0;
    int m_rightPressedKey = 0;
};
