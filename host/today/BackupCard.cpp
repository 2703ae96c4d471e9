// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/BackupCard.h"

#include "host/today/IconMark.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    BackupStanding::Kind kind;
    const char16_t *text;
    KChip::Kind chip;
};

constexpr Words states[] = {
    {BackupStanding::Kind::Unknown, u"نامعلوم", KChip::Kind::Neutral},
    {BackupStanding::Kind::None, u"لازم", KChip::Kind::Warn},
    {BackupStanding::Kind::Taking, u"در حال گرفتن", KChip::Kind::Info},
    {BackupStanding::Kind::Verifying, u"در حال آزمودن", KChip::Kind::Info},
    {BackupStanding::Kind::Taken, u"آزموده نشده", KChip::Kind::Neutral},
    {BackupStanding::Kind::Verified, u"سالم", KChip::Kind::Good},
    {BackupStanding::Kind::Refuted, u"ایراد دارد", KChip::Kind::Danger},
    {BackupStanding::Kind::Failed, u"گرفته نشد", KChip::Kind::Danger},
};

}

BackupCard::BackupCard(QWidget *parent)
    : QFrame(parent)
    , m_line(new ElidedLabel(this))
    , m_state(new KChip(KChip::Kind::Neutral, {}, this))
{
    LookMarks::setCard(this);
    auto *title = new ElidedLabel(this);
    title->setText(u"آخرین پشتیبان"_s);
    setAccessibleName(title->text());
    LookFonts::apply(title, LookFonts::Use::Strong);
    LookFonts::apply(m_line, LookFonts::Use::Label);
    auto *take = new QPushButton(u"پشتیبان‌گیری"_s, this);
    take->setAutoDefault(true);
    auto *words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(title);
    words->addWidget(m_line);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    row->setSpacing(LookSizes::unit);
    row->addWidget(new IconMark(u":/icons/save.svg"_s, this));
    row->addLayout(words, 1);
    row->addWidget(m_state);
    row->addWidget(take);
    connect(take, &QPushButton::clicked, this, &BackupCard::asked);
    show(BackupStanding());
}

void BackupCard::show(const BackupStanding &standing)
{
    for (const Words &words : states) {
        if (words.kind != standing.kind)
            continue;
        m_state->setText(QString::fromUtf16(words.text));
        m_state->setKind(words.chip);
    }
    m_line->setText(standing.isBad() && !standing.trouble.isEmpty()   ? standing.trouble
                        : standing.taken.isValid()                    ? BackupStanding::timeText(standing.taken, standing.today)
                        : standing.kind == BackupStanding::Kind::None ? u"هنوز گرفته نشده است"_s
                                                                      : QString());
}
