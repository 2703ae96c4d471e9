// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/IconMark.h"

#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>

namespace {

constexpr int markSize = 24;

}

IconMark::IconMark(const QString &icon, QWidget *parent)
    : QWidget(parent)
    , m_icon(LookIcons::icon(icon))
{
    setFixedSize(LookSizes::scaled(markSize), LookSizes::scaled(markSize));
}

void IconMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}
