// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/Thumbnails.h"

#include <QObject>
#include <QThread>

#include <atomic>
#include <memory>

// Makes the small pictures that an office from before lacks: beside the work, on a thread and a connection of its own, one program at a
// time. What is not done when this object ends is gone on with the next time.
class TZIMAGE_EXPORT ThumbnailBuilding : public QObject
{
    Q_OBJECT

public:
    explicit ThumbnailBuilding(Thumbnails::Source source, QObject *parent = nullptr);
    // Ends it after the picture that it is at.
    ~ThumbnailBuilding() override;

    // Once for each object; does nothing in an office that is only read.
    void start();

Q_SIGNALS:
    // The records have one now that shows something.
    void made(const QList<qint32> &keys);

private:
    void run();

    Thumbnails::Source m_source;
    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_cancelled = false;
};
