// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/TzCRMExport.h"

#include <QDateTime>

// The list of the user's own reminders ("یادآوری ها"), due ones first. It needs no right: everybody may see to their own.
class TZCRM_EXPORT CDlgAlarms : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAlarms(QWidget *parent = nullptr);
    ~CDlgAlarms() override;

    bool OnAccess() override;
    void refresh() override;

Q_SIGNALS:
    // One was added, changed, done or deleted here, or the list was read anew: a count of the due ones shown elsewhere may be out of
    // date.
    void alarmsChanged();

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    void beginRows(KMySQL &) override;
    bool isWarning(KMySQL &record) const override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;

private:
    void addAlarm();
    void editAlarm();
    void finishAlarm();
    void deleteAlarm();
    void postponeAlarm();
    void changed(int key);

    QDateTime m_now; // by the server, at the last fill
};
