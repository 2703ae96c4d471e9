// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RecordStory.h"

namespace {

RecordStory::Window &storyWindow()
{
    static RecordStory::Window window;
    return window;
}

}

void RecordStory::setWindow(const Window &window)
{
    storyWindow() = window;
}

bool RecordStory::isOffered(const QString &table)
{
    const Window &window = storyWindow();
    return window.show && window.isOffered && window.isOffered(table);
}

void RecordStory::show(const QString &table, qint32 key, QWidget *parent)
{
    if (key != 0 && isOffered(table))
        storyWindow().show(table, key, parent);
}

QString RecordStory::caption()
{
    return QStringLiteral("سرگذشت");
}
