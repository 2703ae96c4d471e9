// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupProgress.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <exception>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The bar counts in thousandths, because a database may have more bytes than an int holds.
constexpr int wholeProgress = 1000;
constexpr int glanceMilliseconds = 100;

}

BackupProgress::BackupProgress(const QString &title, const QString &text, QWidget *parent)
    : QProgressDialog(text, u"انصراف"_s, 0, wholeProgress, parent)
{
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    setAutoClose(false);
    setAutoReset(false);
    setMinimumDuration(0);
    show();
}

void BackupProgress::showDone(qint64 done, qint64 expected)
{
    if (expected <= 0) {
        setRange(0, 0);
        return;
    }
    setRange(0, wholeProgress);
    setValue(int(qMin<qint64>(wholeProgress - 1, done * wholeProgress / expected)));
}

BackupProgress::Progress BackupProgress::here()
{
    return [this](qint64 done, qint64 expected) {
        showDone(done, expected);
        QCoreApplication::processEvents();
        return !wasCanceled();
    };
}

bool BackupProgress::waitFor(const std::function<bool()> &ended)
{
    setRange(0, 0);
    QEventLoop loop;
    QTimer glance;
    connect(&glance, &QTimer::timeout, &loop, [&] {
        if (ended() || wasCanceled())
            loop.quit();
    });
    glance.start(glanceMilliseconds);
    if (!ended())
        loop.exec();
    return !wasCanceled();
}

void BackupProgress::run(const std::function<void(const Progress &)> &work)
{
    std::atomic<qint64> done = 0;
    std::atomic<qint64> expected = 0;
    std::atomic<bool> cancelled = false;
    std::exception_ptr error;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work([&](qint64 nowDone, qint64 nowExpected) {
                done = nowDone;
                expected = nowExpected;
                return !cancelled;
            });
        } catch (...) {
            error = std::current_exception();
        }
    }));
    thread->start();
    QEventLoop loop;
    QTimer glance;
    connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    connect(&glance, &QTimer::timeout, this, [&] {
        showDone(done, expected);
        cancelled = wasCanceled();
    });
    glance.start(glanceMilliseconds);
    while (!thread->isFinished())
        loop.exec();
    thread->wait();
    hide();
    if (error)
        std::rethrow_exception(error);
}
