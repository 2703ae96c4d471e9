// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportProgressWindow.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// Windows repaint between two reports of this distance, so that repainting does not become the work.
constexpr int millisecondsBetween = 40;

}

ReportProgressWindow::ReportProgressWindow(const QString &text, QWidget *parent, int minimumMilliseconds)
    : m_dialog(text, QString(), 0, 100, parent)
{
    m_dialog.setWindowTitle(u"لطفا صبر کنید"_s);
    m_dialog.setLayoutDirection(Qt::RightToLeft);
    auto *stop = new QPushButton(u"انصراف"_s);
    stop->setAccessibleName(stop->text());
    m_dialog.setCancelButton(stop);
    m_dialog.setWindowModality(Qt::ApplicationModal);
    m_dialog.setAutoReset(false);
    m_dialog.setAutoClose(false);
    m_dialog.setMinimumDuration(minimumMilliseconds);
    m_dialog.setValue(0);
    m_last.start();
}

ReportProgress ReportProgressWindow::callback()
{
    return [this](int done, int total) { return report(done, total); };
}

bool ReportProgressWindow::report(int done, int total)
{
    if (m_last.elapsed() >= millisecondsBetween) {
        // Shown, it lets the windows answer from here: that is how the stop button is heard.
        m_dialog.setValue(total > 0 ? done * 100 / total : 0);
        m_last.restart();
    }
    return !m_dialog.wasCanceled();
}
