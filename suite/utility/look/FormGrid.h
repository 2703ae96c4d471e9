// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QLayout>

#include <vector>

class QLabel;

// The grid of a form: equal columns in which each field stands with its label above it, so that the edges of all fields of a page
// lie on the same lines. 8 columns where a page has the room, in two halves; 4, or 2, where it has less. Fields keep their order;
// one that does not fit begins the next row. What is hidden takes no room, and the fields behind it close up.
//
// The rest of a label's line belongs to the field: the amount in words, a hint, or why the entry is refused. The page therefore
// never grows when one appears.
class TZUTILITY_EXPORT FormGrid : public QLayout
{
    Q_OBJECT

public:
    enum class Extent {
        Full, // a card as wide as the page: up to 8 columns
        Half  // one that may stand beside another: up to 4
    };

    explicit FormGrid(QWidget *card, Extent extent = Extent::Full);
    ~FormGrid() override;

    // A field over so many columns: its label and what is said beside it (both null for none), and its control.
    void addField(QLabel *label, QWidget *note, QWidget *control, int span);
    // The control with what stands behind it in its line. Takes ownership of the layout.
    void addField(QLabel *label, QWidget *note, QLayout *controls, int span);
    // Something without a label: a check box, a button, words beside an amount. It stands in the line of the controls.
    void addCell(QWidget *cell, int span = 1);
    void addCell(QLayout *cell, int span = 1);
    // A sentence with fields in it: a row of its own, without a line for labels, as wide as the card.
    void addLine(QWidget *line);
    // What is added next begins a row.
    void startRow();

    // Columns that a card of that inner width has.
    int columnsFor(int width) const;
    // Where the columns of the card as it stands begin and end, from its leading edge in pixels; for tests of the grid.
    struct Column
    {
        int from = 0;
        int to = 0;
    };
    std::vector<Column> columns() const;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect &rect) override;

private:
    struct Field
    {
        QLayoutItem *label = nullptr;
        QLayoutItem *note = nullptr;
        QLayoutItem *control = nullptr;
        int span = 1;
        bool startsRow = false;
        bool isLine = false;
    };
    struct Placed
    {
        const Field *field = nullptr;
        int column = 0;
        int span = 1;
    };
    using Row = std::vector<Placed>;

    void add(Field field);
    std::vector<Row> rowsOf(int columns) const;
    std::vector<Column> columnsOf(int width) const;
    static bool isShown(const Field &field);
    static bool isText(const Row &row);
    void showNotes() const;
    int lay(const QRect &rect, bool apply) const;
    int layRow(const Row &row, const QRect &rect, int top, bool apply) const;

    Extent m_extent;
    bool m_startsRow = false;
    std::vector<Field> m_fields;
    std::vector<QLayoutItem *> m_items; // of the fields, in the order of Tab
};
