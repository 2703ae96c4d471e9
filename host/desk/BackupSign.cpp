// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/BackupSign.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

BackupSign::BackupSign(QWidget *parent)
    : QToolButton(parent)
{
    setObjectName(u"backupSign"_s);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    LookFonts::apply(this, LookFonts::Use::Label);
    hide();
}

void BackupSign::show(const BackupStanding &state)
{
    m_isBad = state.isBad();
    setIcon(m_isBad ? LookIcons::icon(u":/icons/warning.svg"_s, HostColors::Role::Danger) : LookIcons::icon(u":/icons/save.svg"_s));
    setText(state.text());
    setAccessibleName(state.text());
    setToolTip(state.tip());
    setVisible(!state.text().isEmpty());
}

void BackupSign::paintEvent(QPaintEvent *)
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    if (m_isBad)
        option.palette.setColor(QPalette::ButtonText, HostColors::of(HostColors::Role::Danger));
    QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
}
