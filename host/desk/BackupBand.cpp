// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/BackupBand.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

using namespace Qt::StringLiterals;

BackupBand::BackupBand(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setAccessibleName(text);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(LookSizes::unit);
    LookFonts::apply(this, LookFonts::Use::Strong);
}

void BackupBand::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), HostColors::of(HostColors::Role::WarnSoft));
    painter.setPen(HostColors::of(HostColors::Role::Warn));
    painter.drawText(contentsRect().marginsRemoved({margin(), margin(), margin(), margin()}), int(alignment()) | Qt::TextWordWrap, text());
}
