// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KWaiter.h"
#include "suite/utility/TzUtilityExport.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QDialog;
class QLabel;

// While one lives, the pointer says when an operation has waited for the database for a tenth of a second, and a window when it has
// for a whole one, with the seconds and a button to give up. To be made on the user-interface thread, whose connections it waits for.
//
// An operation is what is done between two turns of the event loop, however many answers it awaits: a notice that came and went with each
// of them would be of no use on a slow line.
//
// The notice is modal, so that nothing else is begun meanwhile; timers and sockets of everything else are put off until the
// answer is there, because what they set off could want the database too.
class TZUTILITY_EXPORT KWaitNotice final : public QObject, public KWaiter
{
    Q_OBJECT

public:
    KWaitNotice();
    ~KWaitNotice() override;

    bool began() noexcept override;
    void slow() noexcept override;
    bool goOn(std::chrono::milliseconds waited) noexcept override;
    void ended() noexcept override;

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    void show();
    bool isOfNotice(const QObject *receiver) const;

    QTimer m_turn;              // of the event loop
    QPointer<QDialog> m_window; // while one is shown
    QPointer<QWidget> m_before; // the window that had the focus
    QLabel *m_text = nullptr;   // of the window
    bool m_givenUp = false;
    bool m_cursorSet = false; // over the notice
    bool m_isSlow = false;    // the pointer says so
};
