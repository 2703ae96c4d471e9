// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTableView>

#include "suite/utility/lists/KLinesModel.h"

// The grid of lines, wholly usable by keyboard: typing edits the cell, Enter takes the entry and moves on to the next cell and
// from the last one into a new line, Insert adds a line, Delete takes the current one away, F2, F4 or the space bar open what a
// cell offers. Enter on an empty last line leaves the grid for the next field.
class TZUTILITY_EXPORT KLinesView : public QTableView
{
    Q_OBJECT

public:
    using QTableView::edit;

    explicit KLinesView(KLinesModel *lines, QWidget *parent = nullptr);

    KLinesModel *linesModel() const { return m_lines; }
    // Takes the entry of a cell that is being edited.
    void finishEntry();
    // Goes to the cell and takes the focus.
    void goTo(int row, int column);

public Q_SLOTS:
    // Adds a line after the current one and moves to its first cell.
    void addLine();
    void removeCurrentLine();

Q_SIGNALS:
    // The user asks for the window that picks what the cell holds.
    void pickRequested(int row, int column);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;

private:
    bool isEntryCell(int column) const;
    void stepOn();
    void leave();
    void fitColumns();

    KLinesModel *m_lines;
};
