// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/FirstStepList.h"

#include <QWidget>

class FirstStepRow;
class KChip;
class QBoxLayout;
class QVBoxLayout;

// What an office that is still empty sees on its first page, in place of cards that would say nothing: the steps to its first contract, those
// that were taken ticked, and what will stand here later. Read anew by refresh() and after each step.
class FirstSteps : public QWidget
{
    Q_OBJECT

public:
    explicit FirstSteps(QWidget *parent = nullptr);

    // Reads how far the office is; nothing any more once it is at work, unless the user has asked for the steps. Without an answer of the
    // database what is shown stays.
    void refresh();
    // Whether the page is to show them: the office has not begun and the user has not hidden them, or the user has asked for them.
    bool isOffered() const;
    // The user asks for them, also after the office has begun.
    void bringBack();
    void focusFirst();
    // A card of the page that an empty office needs as well; below what will stand here later.
    void addCard(QWidget *card);

Q_SIGNALS:
    void offeredChanged(bool offered);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeList();
    QWidget *makePromises();
    void showState(const FirstStepState &state);
    void take(qsizetype place);
    void dismiss();
    void tell(bool wasOffered);
    static bool isHiddenByUser();
    static void setHiddenByUser(bool hidden);

    FirstStepState m_state;
    bool m_isRead = false;
    bool m_isAsked = false; // by the user, in spite of all
    KChip *m_count = nullptr;
    QVBoxLayout *m_rows = nullptr;
    QList<FirstStepRow *> m_steps;
    QBoxLayout *m_sides;
    QVBoxLayout *m_promises = nullptr;
};
