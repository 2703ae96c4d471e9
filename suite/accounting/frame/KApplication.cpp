// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"

#include "suite/accounting/frame/KErrorBoundary.h"

#include <QStyleFactory>

using namespace Qt::StringLiterals;

KApplication::KApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    setStyle(QStyleFactory::create(u"Fusion"_s));
    setLayoutDirection(Qt::RightToLeft);
}

bool KApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        KErrorBoundary::report(std::current_exception(), activeWindow());
    }
    return true;
}
