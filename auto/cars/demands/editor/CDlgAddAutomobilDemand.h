// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/CDlgRecordEditor.h"

class CDlgAddAutomobilDemandBase;
class CTblAutomobilDemands;

// The window in which one customer's demand is written, changed or shown: a row of tabs over its pages. One save writes the
// demand's row.
class CDlgAddAutomobilDemand final : public CDlgRecordEditor
{
    Q_OBJECT

public:
    // Adds a demand with the next code and opens it. Returns its key, or 0 when the user cancelled: the demand is
    // then deleted again, with everything attached to it meanwhile. Throws when the database is closed.
    static int NewDemand(QWidget *parent);
    // Opens a demand that is already in the table. True when the user confirmed. False also when there is no such demand.
    // Throws when the database is closed. refresh is set when the demand was taken out of the archive meanwhile.
    static bool EditDemand(int demandID, bool &refresh, QWidget *parent);
    // That a list will edit it, which looks once more whether the database is closed (KReadAhead).
    static void expectEdit(int demandID);
    // Opens the demand read-only. A key below 1 does nothing.
    static void ShowDemand(int demandID, bool &refresh, QWidget *parent);

    // Adds the row that a new demand starts as and returns its key. Part of NewDemand.
    static int addPlaceholder(const QDateTime &now = GetDBSetting()->GetDBServerDate());

    CDlgAddAutomobilDemand(int demandID, EditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilDemand() override;

    // Builds the pages and fills them. False when the demand does not exist; the window must not be shown then.
    [[nodiscard]] bool load();

    CDlgAddAutomobilDemandBase *basePage() const { return m_base; }

protected:
    [[nodiscard]] bool validatePages() override;
    void save() override;
    [[nodiscard]] int saveAsNew() override;
    QString recordName() const override;
    QString rightsForm() const override;
    [[nodiscard]] bool takeOutOfArchive() override;

private:
    QList<EditorPage<CTblAutomobilDemands> *> pages() const;

    CDlgAddAutomobilDemandBase *m_base = nullptr;
};
