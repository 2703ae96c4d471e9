// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <limits>
#include <memory>

#include "suite/utility/TzUtilityExport.h"

// Rows of a list: every cell a shown text and the raw value behind it, every row its record's key.
class TZUTILITY_EXPORT KListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role {
        SortRole = Qt::UserRole, // the raw value; the text when the cell has none
        KeyRole,                 // the row's key
        LeftToRightRole          // between the list and its model only: whether the cell's text is drawn from left to right
    };

    struct Column
    {
        QString title;
        Qt::Alignment alignment = Qt::AlignRight; // as it is seen, not mirrored; amounts always end at the right
        int width = 80;                           // dialog units: quarters of the font's average character; 0: not shown at first
        QString sortKey;                          // what a click sorts by; empty: it does not sort
        bool isDate = false;
        bool isCode = false;     // a plate, a chassis number: drawn from left to right, its letters too
        QString key = {};        // plain English, by which code and tests name the column
        bool countsRows = false; // holds the running number of its rows, from 1
        bool optional = false;   // off until the user switches it on (KExtListCtrl); such columns stand behind the others
        int widthOnceOn = 0;     // of a column of width 0: what it gets when the user switches it on; 0: it cannot be
        bool sums = false;       // the amounts of its rows are summed up at the foot of the list
        QString sumsBy = {};     // the key of another column by whose words the sums are parted: receipts from payments; empty: none

        int shownWidth() const { return width > 0 ? width : widthOnceOn; }
        bool isOffAtFirst() const { return optional || width == 0; }
    };

    // The value may stay empty. Dates and numbers set as value are drawn left to right.
    struct Cell
    {
        QString text;
        QVariant value = {};
        bool warning = false; // stands out by itself, as a date that is over
        bool isSummed = true; // of an amount in a column that sums: false for what is void
    };

    class Maker;

    struct Row
    {
        int key = 0;
        QVector<Cell> cells;
        bool warning = false; // stands out, as what is overdue
        bool heading = false; // stands out, as the title or the total of the rows around it
        int markedCell = -1;  // column of a cell that must be mended
        std::shared_ptr<const Maker> maker = {}; // of its cells, where they are not made yet
        int place = 0;                           // among that maker's rows

        void makeCells();
    };

    // Makes the cells of rows once they are asked for: a list of thousands shows some thirty. What the list says of all its rows it knows
    // without them.
    class TZUTILITY_EXPORT Maker
    {
    public:
        virtual ~Maker();
        // Its cells, and how it stands out.
        virtual void make(Row &row) const = 0;
        // Of a column that sums.
        struct Amount
        {
            double value = 0;
            bool isSummed = true;
            QString part = {}; // the words by which the sums are parted; empty where they are not
        };
        virtual Amount amount(int place, int column) const = 0;
        // As KListModel::longestFigure, of all its rows.
        virtual QString longestFigure(int column) const = 0;
    };

    // Makes the rows of a list that is too long to hold every cell of it.
    class Source
    {
    public:
        virtual ~Source();
        virtual int count() const = 0;
        virtual Row row(int row) const = 0;
        // -1 when no row has the key. A source that makes every row to find one is slow.
        virtual int rowOfKey(int key) const = 0;
    };

    explicit KListModel(QObject *parent = nullptr);

    // Whether the cell's text is drawn from left to right, on the screen and on paper.
    static bool readsLeftToRight(const Column &column, const Cell &cell);
    // A number, a date or a telephone number, whatever kind of value it is.
    static bool isFigure(const QString &text);

    void setColumns(const QVector<Column> &columns);
    const QVector<Column> &columns() const { return m_columns; }
    // -1 when no column has the key.
    int columnOf(QStringView key) const;
    static QChar sortMark();
    // The column whose title carries the mark "*": the rows stand in its order. -1: none, as at first.
    void setSortMark(int column);

    // Sets all rows at once, with one reset; the way to fill a list. A row with fewer cells than columns is empty at its
    // end. They are narrowed as those before them.
    void setRows(QVector<Row> rows);
    // Leaves only the rows in sight that hold each word of the text in one of those columns, in whatever way it is written; an empty
    // text: all. What the model says of its rows is then said of those, which are numbered anew. A source is not narrowed.
    void narrow(const QString &text, const QList<int> &columns);
    bool isNarrowed() const { return !m_words.isEmpty(); }
    // With those that are out of sight.
    int allRows() const;
    void appendRow(Row row);
    // The same with several. A row with the key of one of them goes: they are what has become of it.
    void appendRows(QVector<Row> rows);
    // The rows behind it are counted anew. False when no row has the key.
    bool removeKey(int key);
    void clear();
    // The longest of the amounts, dates and codes that the column shows; empty without any. Of a source, of its first rows.
    QString longestFigure(int column) const;
    // Those in sight. A list with a source makes all its rows for this.
    QVector<Row> rows() const;

    // Shows the rows of the source instead of rows of its own, until rows are set; null: none. The rows are made when they are
    // shown, and again after sourceChanged.
    void setSource(std::shared_ptr<const Source> source);
    // Of a source that is set from now on, at most so many rows are in sight until more are asked for: a view lays out anew all that are,
    // each time one comes. What the list holds it holds all the same (allRows, rows).
    void setStep(int rows) { m_step = rows; }
    int step() const { return m_step; }
    // So many further ones; as many as are left where these are less.
    void showFurther(int rows);
    // The source has more rows behind those it had.
    void sourceGrew();
    // The source's rows have changed; their number has not.
    void sourceChanged();

    // 0 when there is no such row.
    int keyAt(int row) const;
    // -1 when no row has the key.
    int rowOfKey(int key) const;
    // What the amounts of those rows in that column come to, with the words by which the sums are parted, as they come; one without words
    // where they are not.
    QList<std::pair<QString, double>> sums(int column, const QList<int> &rows) const;
    // The same of all rows in sight.
    QList<std::pair<QString, double>> sums(int column) const;

    // A view asks these two for every row of a long list at once.
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const Row &rowAt(int row) const;
    const Row &listed(int row) const;
    const Row &made(int stored) const;
    int stored(int row) const;
    void addAmount(int row, int column, int words, QList<std::pair<QString, double>> &sums) const;
    Row narrowedRow(int row) const;
    void makeRowKeys();
    void findInSight();
    void countRowsFrom(int first);

    QVector<Column> m_columns;
    int m_markedColumn = -1;
    mutable QVector<Row> m_rows; // some without their cells
    QStringList m_words;      // searched for; empty: all rows are in sight
    QList<int> m_wordColumns; // in which they are
    QStringList m_rowKeys;    // of all rows, what the words are searched in; made when they are needed
    QList<int> m_inSight;     // of the rows, in their order, while there are words
    std::shared_ptr<const Source> m_source;
    int m_sourceRows = 0;                // of the source, as far as views know
    int m_step = std::numeric_limits<int>::max();
    int m_mostRows = m_step; // of the source that views may know
    mutable QCache<int, Row> m_madeRows; // of the source, those asked for last
};
