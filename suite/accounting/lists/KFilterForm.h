// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KFilterControl.h"
#include "suite/utility/entries/EntryRange.h"

#include <QObject>
#include <QStringList>

#include <optional>
#include <vector>

class QGridLayout;
class QLabel;

// The filters of a list as a table: builds their controls with label, buddy and accessible name at their places, returns and
// takes their values by key, resets them, and makes the condition of what they ask.
class TZACCOUNTING_EXPORT KFilterForm : public QObject
{
    Q_OBJECT

public:
    // The controls are added to the grid of the filter box in the order of their places.
    KFilterForm(QList<KListFilter> filters, const KFilterControl::Maker &makePerson, QGridLayout *grid, QObject *parent);

    const QList<KListFilter> &filters() const { return m_filters; }

    // What the filter asks for now, as its kind says. An unknown key is an error of the program and asserts.
    QVariant value(QStringView key) const;
    KFilterValues values() const;
    // What the user sees and can change of them.
    KFilterValues enteredValues() const;
    // Resets the filters and sets those. False when some are none that the user can change; the others are set.
    bool enter(const KFilterValues &values);
    // Sets the control as a user would: a date (QDate or QDateTime) is ticked too, an invalid one unticks it; a choice that
    // is not there means the first; a text is not escaped yet.
    void set(QStringView key, const QVariant &value);
    void reset();
    // Reads the choices anew; the one chosen before stays chosen where it still is.
    void readChoices(QStringView key);
    void setSelectMode(bool on);
    KSql condition(int userID) const;
    // The condition that leaves nothing out but what the list never shows: every filter that the user sees asks for all there is.
    KSql widestCondition(int userID) const;
    // Sets their controls to that.
    void widen();
    // What is asked for, in the user's words: a choice by its word, anything else with its label, in the order of the places. Choices
    // that a list always makes are among them.
    QStringList asked() const;
    // Whether the filters stand on more than one line of the grid.
    bool hasManyLines() const;

    // The first range that ends before it begins; none when all may be.
    std::optional<RangeProblem> backwardsRange() const;

    // Null for a filter that has none.
    QWidget *control(QStringView key) const;
    // The same as the class that the filter's kind has.
    template <class Control>
    Control *control(QStringView key) const
    {
        auto *found = qobject_cast<Control *>(control(key));
        Q_ASSERT(found);
        return found;
    }
    // The control that Ctrl+F moves to; null when no filter names one.
    QWidget *findControl() const;

private:
    struct Item
    {
        KFilterControl control;
        QLabel *label = nullptr;
    };

    void add(qsizetype index, const KFilterControl::Maker &makePerson, QGridLayout *grid);
    static void place(const KListFilter &filter, Item &item, QGridLayout *grid);
    qsizetype indexOf(QStringView key) const;
    QVariant valueAt(qsizetype index) const;
    QVariant widestAt(qsizetype index) const;
    // Whether the user sees its control. A filter without one asks what it asks at first or what the program set.
    bool isChangeable(qsizetype index) const;

    QList<KListFilter> m_filters;
    std::vector<Item> m_items; // as m_filters
    bool m_selectMode = false;
};
