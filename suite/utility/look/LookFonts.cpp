// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/LookFonts.h"

#include "suite/utility/look/HostColors.h"

#include <QApplication>
#include <QWidget>

namespace {

struct Cut
{
    LookFonts::Use use;
    double size; // of 13
    QFont::Weight weight;
};

constexpr double textSize = 13;

constexpr Cut cuts[] = {
    {LookFonts::Use::Page, 20, QFont::Bold},
    {LookFonts::Use::Title, 14, QFont::Bold},
    {LookFonts::Use::Text, textSize, QFont::Normal},
    {LookFonts::Use::Strong, textSize, QFont::Medium},
    {LookFonts::Use::Primary, textSize, QFont::Bold},
    {LookFonts::Use::Label, 12, QFont::Normal},
    {LookFonts::Use::Column, 12, QFont::Bold},
    {LookFonts::Use::Chip, 12, QFont::Medium},
    {LookFonts::Use::Key, 11, QFont::Normal},
};

}

QFont LookFonts::font(Use use)
{
    const Cut &cut = cuts[std::size_t(use)];
    Q_ASSERT(cut.use == use);
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * cut.size / textSize);
    font.setWeight(cut.weight);
    return font;
}

void LookFonts::apply(QWidget *label, Use use)
{
    label->setFont(font(use));
    if (use == Use::Label || use == Use::Column)
        label->setForegroundRole(HostColors::quietText);
}

void LookFonts::applyHint(QWidget *label)
{
    label->setFont(font(Use::Label));
    label->setForegroundRole(HostColors::hintText);
}

void LookFonts::applyError(QWidget *label)
{
    label->setFont(font(Use::Label));
    label->setForegroundRole(HostColors::dangerText);
}
