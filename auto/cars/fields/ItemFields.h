// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class KForm;
class QWidget;

// The fields of a form that take their values from the suite's items, each with the button "..." beside it: what the button
// opens, and what it puts into the field. Kinds of values are those of InputParameters.
class ItemFields : public QObject
{
    Q_OBJECT

public:
    // The windows that the buttons open belong to the page.
    ItemFields(KForm &form, QWidget *page);

    // A Lookup over the values of a kind; the button chooses one among them or adds some.
    void addList(const QString &column, int option);
    // A Lookup over any item type, with the picker of several values made to choose one.
    void addPickedList(const QString &column, int itemType, const QString &title);
    // A whole number; the button takes the number that a value of the kind stands for.
    void addNumber(const QString &column, int option);
    // A text of several values; the button ticks them.
    void addTexts(const QString &column, int option);
    // A text of the values that another column's text does not name; the button fills it.
    void addMissing(const QString &column, const QString &chosenColumn, int option, const QString &toolTip);

    // Offers the values as they are stored now; the current choice of a list stays.
    void fill();

private:
    struct List
    {
        QString column;
        int itemType;
    };

    void onButton(const QString &column, const QString &toolTip, const std::function<void()> &work);
    void fillList(const List &list, int key);
    void pickValue(const QString &column, int option);
    void pickNumber(const QString &column, int option);
    void pickOne(const QString &column, int itemType, const QString &title);
    void pickTexts(const QString &column, int option);
    void fillMissing(const QString &column, const QString &chosenColumn, int option);
    // Replaces the text as typing does, so that it can be undone. Refuses one that the column does not hold.
    void enter(const QString &column, const QString &text);

    KForm &m_form;
    QWidget *m_page;
    QList<List> m_lists;
};
