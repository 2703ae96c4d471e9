// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/waiting/LongWaiting.h"

#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QEventLoop>
#include <QPointer>
#include <QWidget>

namespace {

// Nothing of the window answers meanwhile, and the focus is where it was afterwards.
class Disabled
{
public:
    explicit Disabled(QWidget *window)
        : m_window(window)
        , m_focus(window->focusWidget())
    {
        m_window->setEnabled(false);
    }
    ~Disabled()
    {
        m_window->setEnabled(true);
        if (m_focus)
            m_focus->setFocus();
    }
    Disabled(const Disabled &) = delete;
    Disabled &operator=(const Disabled &) = delete;

private:
    QWidget *m_window;
    QPointer<QWidget> m_focus;
};

}

void LongWaiting::run(const QString &text, QWidget *window, const LongTask::Work &work)
{
    LongTask task;
    {
        const KWaitCursor wait;
        const Disabled disabled(window);
        ReportProgressWindow progress(text, window);
        const ReportProgress report = progress.callback();
        QEventLoop loop;
        QObject::connect(&task, &LongTask::progressed, &loop, [&](int done, int total) {
            if (!report(done, total))
                task.stop();
        });
        QObject::connect(&task, &LongTask::ended, &loop, &QEventLoop::quit);
        task.start(work);
        loop.exec();
    }
    if (task.error())
        std::rethrow_exception(task.error());
}
