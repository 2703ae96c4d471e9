// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/ArchiveLine.h"

#include "suite/db/records/KLookup.h"
#include "suite/db/records/KMySQL.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

ArchiveLine::ArchiveLine(QWidget *parent)
    : QGroupBox(parent)
    , m_user(new QLabel(this))
    , m_date(new QLabel(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    row->setSpacing(LookSizes::unit);
    const auto add = [this, row](const QString &caption, QLabel *value) {
        auto *label = new QLabel(caption, this);
        LookFonts::apply(label, LookFonts::Use::Label);
        row->addWidget(label);
        row->addWidget(value);
    };
    add(u"کاربر بايگاني کننده :"_s, m_user);
    row->addSpacing(LookSizes::sideGap);
    add(u"تاريخ بايگاني :"_s, m_date);
    row->addStretch(1);
}

void ArchiveLine::showArchived(KMySQL &record)
{
    const bool archived = record.value(u"iArchiveUserID").toInt() != 0;
    m_user->setText(KLookup::name(record, u"iArchiveUserID"));
    m_date->setText(archived ? shamsiText(record.value(u"dateArchive").toDate()) : QString());
}
