// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/ArchiveLine.h"

#include "suite/db/KLookup.h"
#include "suite/db/KMySQL.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

ArchiveLine::ArchiveLine(QWidget *parent)
    : QWidget(parent)
    , m_user(new QLabel(this))
    , m_date(new QLabel(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new QLabel(u"کاربر بايگاني کننده :"_s, this));
    row->addWidget(m_user);
    row->addSpacing(24);
    row->addWidget(new QLabel(u"تاريخ بايگاني :"_s, this));
    row->addWidget(m_date);
    row->addStretch(1);
}

void ArchiveLine::showArchived(KMySQL &record)
{
    const bool archived = record.value(u"iArchiveUserID").toInt() != 0;
    m_user->setText(KLookup::name(record, u"iArchiveUserID"));
    m_date->setText(archived ? shamsiText(record.value(u"dateArchive").toDate()) : QString());
}
