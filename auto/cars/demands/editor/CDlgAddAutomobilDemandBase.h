// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/EditorPage.h"

class ArchiveLine;
class CTblAutomobilDemands;
class DemandReminder;
class FormGrid;
class KEdit;
class PersonGroup;

// The page of the demand editor: the customer, the car wanted, and the reminder.
class CDlgAddAutomobilDemandBase final : public EditorPage<CTblAutomobilDemands>
{
    Q_OBJECT

public:
    explicit CDlgAddAutomobilDemandBase(EditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilDemandBase() override;

    // That one will be made, and filled with that demand (KReadAhead).
    static void expectBuild();
    static void expectFill(const CTblAutomobilDemands &demand);
    void fill(CTblAutomobilDemands &demand) override;
    [[nodiscard]] bool validate() override;
    void write(CTblAutomobilDemands &demand) override;
    QHash<QString, Entry> furtherEntries() const override;

    KForm *form() const override { return m_form; }
    PersonGroup *person() const { return m_person; }
    DemandReminder *reminder() const { return m_reminder; }
    ArchiveLine *archiveLine() const { return m_archiveLine; }

private:
    void build();
    QWidget *buildIdentity(QWidget *content);
    QWidget *buildWishes(QWidget *content);
    QWidget *buildTexts(QWidget *content);
    KEdit *addShown(FormGrid *grid, const QString &label, QWidget *parent);
    // The beginning of a new reminder's description: the demand, its customer and the car wanted.
    QString proposedReminder() const;

    KForm *m_form = nullptr;
    PersonGroup *m_person = nullptr;
    DemandReminder *m_reminder = nullptr;
    ArchiveLine *m_archiveLine = nullptr;
    KEdit *m_created = nullptr;
    KEdit *m_user = nullptr;
};
