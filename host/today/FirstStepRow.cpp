// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/FirstStepRow.h"

#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepHeight = 56;
constexpr int stepButtonWidth = 96;
constexpr int stepMark = 24;
constexpr int besideStep = 12; // the card's own edge is the rest of its padding
const QString doneWord = u"انجام شد"_s;

struct StepLook
{
    KChip::Kind mark;
    LookMarks::Button button;
    QString caption;
    QPalette::ColorRole name;
    QPalette::ColorRole line;
};

StepLook lookOf(FirstStepRow::State state)
{
    using enum FirstStepRow::State;
    if (state == Done)
        return {KChip::Kind::Good, LookMarks::Button::Normal, {}, QPalette::WindowText, HostColors::quietText};
    if (state == Next)
        return {KChip::Kind::Info, LookMarks::Button::Primary, u"شروع"_s, QPalette::HighlightedText, QPalette::HighlightedText};
    return {KChip::Kind::Neutral, LookMarks::Button::Normal, u"باز کردن"_s, QPalette::WindowText, HostColors::quietText};
}

}

FirstStepRow::FirstStepRow(int number, const QString &title, const QString &line, QWidget *parent)
    : QWidget(parent)
    , m_number(number)
    , m_title(title)
    , m_text(line)
    , m_mark(new KChip(KChip::Kind::Neutral, {}, this))
    , m_name(new ElidedLabel(title, this))
    , m_line(new ElidedLabel(line, this))
    , m_doneWord(new QLabel(doneWord, this))
    , m_button(new QPushButton(this))
{
    setMinimumHeight(LookSizes::scaled(stepHeight));
    setAccessibleName(title);
    LookFonts::apply(m_name, LookFonts::Use::Strong);
    LookFonts::apply(m_line, LookFonts::Use::Label);
    LookFonts::applyHint(m_doneWord);
    m_mark->setMinimumWidth(LookSizes::scaled(stepMark));
    m_doneWord->setAlignment(Qt::AlignCenter);
    m_doneWord->setMinimumWidth(LookSizes::scaled(stepButtonWidth));
    m_button->setMinimumWidth(LookSizes::scaled(stepButtonWidth));
    m_button->setAutoDefault(true);
    LookMarks::setTall(m_button);
    connect(m_button, &QPushButton::clicked, this, &FirstStepRow::chosen);

    auto *words = new QVBoxLayout;
    words->setSpacing(0);
    words->addStretch(1);
    words->addWidget(m_name);
    words->addWidget(m_line);
    words->addStretch(1);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(LookSizes::scaled(besideStep), 0, LookSizes::scaled(besideStep), 0);
    row->setSpacing(LookSizes::sideGap);
    row->addWidget(m_mark);
    row->addLayout(words, 1);
    row->addWidget(m_doneWord);
    row->addWidget(m_button);
    setState(State::Open);
}

void FirstStepRow::setState(State state)
{
    m_state = state;
    const StepLook look = lookOf(state);
    const bool isDone = state == State::Done;
    m_mark->setText(isDone ? u"✓"_s : QString::number(m_number));
    m_mark->setKind(look.mark);
    m_mark->updateGeometry();
    m_name->setForegroundRole(look.name);
    m_line->setForegroundRole(look.line);
    LookMarks::setButton(m_button, look.button);
    m_button->setText(look.caption);
    m_button->setAccessibleName(look.caption + u' ' + m_title);
    m_button->setVisible(!isDone);
    m_doneWord->setVisible(isDone);
    setAccessibleDescription(isDone ? doneWord : m_text);
    update();
}

void FirstStepRow::paintEvent(QPaintEvent *)
{
    if (m_state != State::Next)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(HostColors::Role::Select));
    painter.drawRoundedRect(rect(), LookSizes::buttonCorner, LookSizes::buttonCorner);
}
