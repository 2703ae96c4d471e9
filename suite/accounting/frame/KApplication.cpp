// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/frame/FocusKeeper.h"

#include <QStyleFactory>

using namespace Qt::StringLiterals;

KApplication::KApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    setStyle(QStyleFactory::create(u"Fusion"_s));
    setLayoutDirection(Qt::RightToLeft);
    new FocusKeeper(this);
    KTransaction::setLookAgain([] {
        return g_pDlgWarning->ShowUnknown(u"نامعلوم: پیش از تکرار نگاه کنید.\n"
                                          "ارتباط با پایگاه داده هنگام ذخیره قطع شد و هنوز پاسخی نمی‌رسد که ذخیره انجام شده است یا نه."_s);
    });
}

KApplication::~KApplication()
{
    KTransaction::setLookAgain({});
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
