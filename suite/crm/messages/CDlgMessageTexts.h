// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/TzCRMExport.h"

// The office's own texts of messages ("متن پیام‌ها").
class TZCRM_EXPORT CDlgMessageTexts final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgMessageTexts(QWidget *parent = nullptr);
    ~CDlgMessageTexts() override;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString defaultSort() const override { return u"sKind,sName"_s; }
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void addText();
    void editText();
};
