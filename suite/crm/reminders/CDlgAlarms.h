// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/TzCRMExport.h"

#include <QDateTime>

class QCheckBox;

// The list of the user's own reminders ("یادآوری ها"), due ones first. It needs no right: everybody may see to their own.
class TZCRM_EXPORT CDlgAlarms : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAlarms(QWidget *parent = nullptr);
    ~CDlgAlarms() override;

    bool OnAccess() override;

Q_SIGNALS:
    // One was added, changed, done or deleted here: a count of the due ones shown elsewhere may be another now.
    void alarmsChanged();

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    void beginRows() override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    QWidget *firstFilterControl() const override;

private:
    void addAlarm();
    void editAlarm();
    void finishAlarm();
    void deleteAlarm();
    void postponeAlarm();
    void changed(int key);

    KEdit *m_text = nullptr;
    QCheckBox *m_showDone = nullptr;
    QDateTime m_now;
};
