// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QVector>

#include <functional>

#include "suite/utility/TzUtilityExport.h"

// Lines that are entered in a grid: those of an invoice, the rows of a document.
class TZUTILITY_EXPORT KLinesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        NumberRole = Qt::UserRole, // a number cell's number
        KeyRole                    // a choice's or a picked record's key
    };

    enum class Kind {
        Text,
        Number, // any number of decimals up to four, 0 and above
        Money,
        Choice,  // one of the column's choices, looked for while it is typed
        Pick,    // a record that another window picks (KLinesView::pickRequested)
        Computed // money that follows from the line's other cells
    };

    struct Choice
    {
        int key = 0;
        QString text;
    };

    // A number, a text, or a key with the text it is shown by. A choice that was typed and is none of the column's keeps its
    // text with key 0, and is marked.
    struct Cell
    {
        QString text;
        double number = 0;
        int key = 0;
    };
    using Line = QVector<Cell>;

    struct Column
    {
        QString title;
        Kind kind = Kind::Text;
        int width = 80;    // dialog units: quarters of the font's average character
        int maxLength = 0; // characters of a text; 0: no limit
        QVector<Choice> choices = {};
        std::function<double(const Line &)> compute = {};
    };

    explicit KLinesModel(QVector<Column> columns, QObject *parent = nullptr);

    const QVector<Column> &columns() const { return m_columns; }
    bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }

    // The lines as they were entered, those without any entry left out. positions: where each stands in the grid.
    QVector<Line> lines(QVector<int> *positions = nullptr) const;
    // Not an edit.
    void setLines(QVector<Line> lines);
    Line emptyLine() const { return Line(m_columns.size()); }
    const Line &line(int row) const { return m_lines.at(row); }
    bool isLineEmpty(int row) const;

    void insertLine(int row);
    void removeLine(int row);
    void setCell(int row, int column, const Cell &cell);
    // The choice that a typed text means: the one of that text, the one that begins with it as its code, the only one that has
    // it as the name behind its code, or the only one that holds it. Key 0 with the text as typed when there is none.
    Cell choiceFor(int column, const QString &typed) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // As a user or a screen reader enters it: a text for texts and choices, a number or its text for numbers.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    // A cell changed, a line came or went, in any way but setLines.
    void edited();

private:
    QString shownText(const QModelIndex &index) const;
    bool isUnknownChoice(const QModelIndex &index) const;

    QVector<Column> m_columns;
    QVector<Line> m_lines;
    bool m_readOnly = false;
};
