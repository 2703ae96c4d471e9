// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StoryKinds.h"

using namespace Qt::StringLiterals;

namespace {

struct KindLook
{
    QStringView caption;
    QStringView icon;
};

// By the number of the kind.
constexpr KindLook kindLooks[StoryEvent::kindCount] = {
    {u"ثبت و تغییر", u":/icons/history.svg"},
    {u"قیمت", u":/icons/money.svg"},
    {u"تصویر", u":/icons/picture.svg"},
    {u"تقاضا", u":/icons/search.svg"},
    {u"قرارداد", u":/icons/contract.svg"},
    {u"دریافت و پرداخت", u":/icons/receipt.svg"},
    {u"فایل", u":/icons/attach.svg"},
    {u"یادآوری", u":/icons/reminder.svg"},
    {u"یادداشت و تماس", u":/icons/edit.svg"},
};

struct ToneLook
{
    StoryKinds::Inks inks;
    KChip::Kind chip;
};

using HostColors::Role;

// By the number of the tone.
constexpr ToneLook toneLooks[] = {
    {{Role::Quiet, Role::NeutralSoft}, KChip::Kind::Neutral},
    {{Role::Info, Role::InfoSoft}, KChip::Kind::Info},
    {{Role::Good, Role::GoodSoft}, KChip::Kind::Good},
    {{Role::Warn, Role::WarnSoft}, KChip::Kind::Warn},
    {{Role::Danger, Role::DangerSoft}, KChip::Kind::Danger},
};

}

QString StoryKinds::caption(StoryEvent::Kind kind)
{
    return kindLooks[int(kind)].caption.toString();
}

QString StoryKinds::icon(StoryEvent::Kind kind)
{
    return kindLooks[int(kind)].icon.toString();
}

StoryKinds::Inks StoryKinds::inks(StoryEvent::Tone tone)
{
    return toneLooks[int(tone)].inks;
}

KChip::Kind StoryKinds::chip(StoryEvent::Tone tone)
{
    return toneLooks[int(tone)].chip;
}
