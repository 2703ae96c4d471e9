// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/HistoryButton.h"

#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/utility/look/LookIcons.h"

#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

void HistoryButton::addTo(QWidget *window, QHBoxLayout *footer, const QString &table, qint32 key)
{
    if ((key < 1 && !RecordHistory::isOfSettings(table)) || !RecordHistory::isOffered(table))
        return;
    auto *button = new QPushButton(LookIcons::icon(u":/icons/history.svg"_s), RecordHistory::caption(), window);
    button->setAccessibleName(RecordHistory::caption());
    button->setAutoDefault(false);
    button->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
    button->setToolTip(u"%1 (%2)"_s.arg(RecordHistory::caption(), button->shortcut().toString(QKeySequence::NativeText)));
    QObject::connect(button, &QPushButton::clicked, window, [window, table, key] { KErrorBoundary::guarded(window, [&] { RecordHistory::show(table, key, window); }); });
    footer->addWidget(button);
}
