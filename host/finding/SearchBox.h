// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/finding/SearchTask.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class KeyCap;
class QLineEdit;
class SearchPopup;

// The search over everything, in the main window's bar: what is typed is looked for at once and shown below it. Up and Down choose a hit,
// Ctrl with them a group; Enter opens it, Ctrl+Enter edits it, Alt+Enter, the key for menus or Left behind the text offers what else can be done with it,
// Ctrl+T tells its story,
// Shift+Enter lists all of its group, Esc closes and gives the focus back.
class SearchBox final : public QWidget
{
    Q_OBJECT

public:
    // window: over which what was found is shown.
    SearchBox(QWidget *room, QWidget *window);
    ~SearchBox() override;

    // Takes the focus and opens; where it is open, selects what was typed.
    void begin();
    void close();
    // The bar is that wide.
    void fit(int barWidth);
    SearchPopup *popup() const { return m_popup; }
    QLineEdit *edit() const { return m_edit; }
    // The words that the hits shown belong to; empty: none are.
    const QString &shown() const { return m_shown; }
    // What the pop-up says besides, such as that keys are being made.
    void setNotice(const QString &notice);

Q_SIGNALS:
    // What was asked last is shown.
    void answered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(const QKeyEvent &event);
    bool moved(const QKeyEvent &event);
    void open();
    void ask();
    void show(const QString &typed, const QList<SearchFinding::Group> &groups, qint64 milliseconds);
    void tell(const std::exception_ptr &error);
    void openChosen(bool edits);
    void openAll(const SearchFinding::Group &group);
    void offerActions();
    // Its whole story, where there is a window for it.
    void openStory();

    QWidget *m_window;
    QLineEdit *m_edit;
    KeyCap *m_key;
    SearchPopup *m_popup;
    SearchTask m_task;
    QTimer m_pause;             // after a letter
    QTimer m_factsPause;        // after a choice
    QPointer<QWidget> m_before; // had the focus
    QString m_asked;
    QString m_shown;               // what the hits belong to
    bool m_opensWhenFound = false; // Enter came first
};
