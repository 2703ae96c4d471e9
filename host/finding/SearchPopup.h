// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/finding/SearchTask.h"

#include <QFrame>

class QLabel;
class QListView;
class SearchHitDelegate;
class SearchHits;

// What was found, in a sheet below the search box, over a veil on the rest of the window.
class SearchPopup final : public QWidget
{
    Q_OBJECT

public:
    explicit SearchPopup(QWidget *window);

    // Below the box, over everything under the bar.
    void open(const QWidget &box);
    void show(const QString &typed, const QList<SearchFinding::Group> &groups, qint64 milliseconds);
    // What can be looked for; nothing is typed.
    void showNothingTyped();
    void showFailure(const QString &sentence);
    void showFacts(const SearchHit &hit, const SearchTask::Facts &facts);
    // What else is to be said for the time being, such as that keys are still being made; empty: nothing.
    void setNotice(const QString &notice);

    // Something was looked for, in vain.
    bool isNothingFound() const { return m_foundNothing; }

    // One hit on; the list keeps the first and last one.
    void step(int direction);
    // To the first hit of the next group, or of that before.
    void stepGroup(int direction);
    // The chosen hit and the group it is in; null when there is none.
    const SearchHit *chosen() const;
    const SearchFinding::Group *chosenGroup() const;
    QListView *list() const { return m_list; }
    QRect chosenRect() const;

Q_SIGNALS:
    // A click, or what stands for it.
    void opened();
    void allWanted(int row);
    void left();
    void chosenChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildFooter();
    void say(const QString &sentence);
    void choose(int row);
    void place();
    void showTime(const QString &text);

    QFrame *m_sheet;
    QListView *m_list;
    SearchHits *m_hits;
    SearchHitDelegate *m_delegate;
    QLabel *m_sentence;
    QLabel *m_facts;
    QLabel *m_time;
    QString m_notice;
    QString m_found;
    bool m_foundNothing = false;
    const QWidget *m_box = nullptr;
};
