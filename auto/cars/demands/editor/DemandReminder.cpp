// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/DemandReminder.h"

#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

QString lostMessage()
{
    return u"این تقاضا در این میان حذف شده یا از کاربر دیگری یادآوری گرفته است. یادآوری شما ذخیره نشد: %1"_s;
}

}

DemandReminder::DemandReminder(QWidget *parent)
    : QGroupBox(u"يادآوري"_s, parent)
    , m_remind(new QCheckBox(u"يادآوري شود"_s, this))
    , m_settings(new QPushButton(LookIcons::icon(u":/icons/reminder.svg"_s), u"تنظيمات "_s, this))
    , m_description(new KEdit(this))
{
    m_remind->setAccessibleName(m_remind->text());
    m_settings->setAccessibleName(m_settings->text());
    m_settings->setToolTip(u"تاریخ، ساعت و شرح یادآوری"_s);
    m_settings->setAutoDefault(false);
    m_description->setReadOnly(true);
    m_description->setAccessibleName(u"شرح یادآوری"_s);
    LookMarks::setButton(m_settings, LookMarks::Button::Small);
    auto *row = new QHBoxLayout;
    row->addWidget(m_description, 1);
    row->addWidget(m_settings);
    auto *grid = new FormGrid(this);
    grid->addCell(m_remind);
    grid->addCell(row, 3);
    // A screen reader toggles without a click.
    connect(m_remind, &QCheckBox::toggled, this, &DemandReminder::edit);
    connect(m_settings, &QPushButton::clicked, this, &DemandReminder::edit);
    hide();
}

void DemandReminder::bind(int demandID, int demandCode, int alarmID, const std::function<QString()> &proposed)
{
    m_demandID = demandID;
    m_demandCode = demandCode;
    m_alarmID = alarmID;
    m_proposed = proposed;
    showReminder();
}

void DemandReminder::showFor(bool changeable)
{
    m_remind->setEnabled(changeable);
    m_settings->setVisible(changeable);
    setVisible(changeable || m_alarmID != 0);
}

QString DemandReminder::description() const
{
    return m_description->text();
}

void DemandReminder::edit()
{
    KErrorBoundary::guarded(this, [this] {
        // It may have been deleted in the list of reminders meanwhile, or added at another desk.
        m_alarmID = CTblAutomobilDemands::alarmOf(m_demandID);
        showReminder();
        if (m_alarmID != 0) {
            CDlgAddAlarm::Edit(m_alarmID, window());
        } else if (const int added =
                       CDlgAddAlarm::Add(m_proposed(), CTblAutomobilDemands::recordKind, m_demandID, m_demandCode, window())) {
            const QString typed = CTblAlarm::GetDesc(added);
            if (!CTblAutomobilDemands::takeAlarm(m_demandID, added))
                g_pDlgWarning->Show(lostMessage().arg(typed), window());
            m_alarmID = CTblAutomobilDemands::alarmOf(m_demandID);
        }
    });
    showReminder();
}

void DemandReminder::showReminder()
{
    const QString description = CTblAlarm::GetDesc(m_alarmID);
    if (description.isEmpty())
        m_alarmID = 0;
    m_description->setText(description);
    m_description->setCursorPosition(0);
    {
        const QSignalBlocker shownOnly(m_remind);
        m_remind->setChecked(m_alarmID != 0);
    }
    m_settings->setEnabled(m_alarmID != 0);
}
