// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KWaiter.h"
#include "suite/utility/TzUtilityExport.h"

#include <QObject>
#include <QPointer>

class QDialog;
class QLabel;

// While one lives, a window that waits for the database for longer than a second says so, with the seconds and a button to give
// up. To be made on the user-interface thread, whose connections it waits for.
//
// The notice is modal, so that nothing else is begun meanwhile; timers and sockets of everything else are put off until the
// answer is there, because what they set off could want the database too.
class TZUTILITY_EXPORT KWaitNotice final : public QObject, public KWaiter
{
    Q_OBJECT

public:
    KWaitNotice();
    ~KWaitNotice() override;

    bool goOn(std::chrono::milliseconds waited) noexcept override;
    void ended() noexcept override;

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    void show();
    bool isOfNotice(const QObject *receiver) const;

    QPointer<QDialog> m_window; // while one is shown
    QPointer<QWidget> m_before; // the window that had the focus
    QLabel *m_text = nullptr;   // of the window
    bool m_givenUp = false;
    bool m_cursorSet = false;
};
