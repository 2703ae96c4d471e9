// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/manual/ManualPages.h"
#include "host/manual/ManualSearch.h"
#include "suite/utility/frame/KDialog.h"

#include <QList>

class KEdit;
class ManualContents;
class ManualText;
class QLabel;
class QPushButton;
class QTimer;
class QUrl;

// The manual: its contents and a page of it, with a search whose hits are marked. It is never modal, and stays usable while a modal
// window is open: what is read there is done here.
class CDlgManual : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgManual(QWidget *parent = nullptr, const ManualPages &pages = ManualPages());

    // A page that is not there: the contents, with a word of it.
    void showPage(const QString &page, const QString &anchor = {});
    // For a window that has no page: the contents, with that word.
    void showContents(const QString &note);
    const QString &page() const { return m_place.page; }

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Place
    {
        QString page;
        int scrolled = 0;
    };

    void build();
    QWidget *buildBar();
    void buildFooter();
    QPushButton *addButton(QWidget *parent, const QString &text, const QKeySequence &keys, const std::function<void()> &work);
    // Without a trace in the history.
    void load(const Place &place);
    void follow(const QUrl &link);
    void step(QList<Place> &from, QList<Place> &to);
    void showSteps();
    void search();
    void markHits();
    void nextHit(bool backwards);
    bool findHere(bool backwards, bool fromEdge);
    void print();
    void savePdf();
    void standBesideModal();

    ManualPages m_pages;
    ManualSearch m_search;
    ManualContents *m_contents;
    ManualText *m_text;
    KEdit *m_typed = nullptr;
    QLabel *m_found = nullptr;
    QLabel *m_note;
    QPushButton *m_back = nullptr;
    QPushButton *m_forward = nullptr;
    QTimer *m_layout;
    Place m_place;
    QList<Place> m_before;
    QList<Place> m_after;
};
