// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/TourOffer.h"

#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

TourOffer::TourOffer(QWidget *window)
    : QToolBar(u"پیشنهاد گشت در برنامه"_s, window)
{
    setObjectName(u"tourOffer"_s);
    setAccessibleName(windowTitle());
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    auto *line = new QWidget(this);
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(LookSizes::windowMargin, LookSizes::unit / 2, LookSizes::windowMargin, LookSizes::unit / 2);
    row->setSpacing(LookSizes::unit);
    auto *words = new ElidedLabel(line);
    words->setText(u"این دفتر نمونه است. یک گشت کوتاه، مهم‌ترین کارهای برنامه را در جای خودشان نشان می‌دهد."_s);
    row->addWidget(words, 1);
    auto *begin = new KCommandButton(LookIcons::icon(u":/icons/help.svg"_s), u"شروع گشت"_s, line);
    auto *refuse = new KCommandButton({}, u"نمی‌خواهم"_s, line);
    for (KCommandButton *button : {begin, refuse}) {
        button->setAutoDefault(false);
        LookMarks::setTall(button);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, &QWidget::hide);
        connect(button, &QPushButton::clicked, this, &QObject::deleteLater);
    }
    connect(begin, &QPushButton::clicked, this, &TourOffer::accepted);
    addWidget(line);
}

// The style would shade it as a bar of tools.
void TourOffer::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), HostColors::of(HostColors::Role::InfoSoft));
}
