// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/editor/CarEditorPage.h"

class ItemFields;
class PersonGroup;
class PlatePicture;

// Second page of the car editor: the sale, with the buyer, what was agreed, paid and spent, and the profit and loss that
// follows (ProfitAndLoss.h). It posts nothing.
class CDlgAddAutomobilInformationSales final : public CarEditorPage
{
    Q_OBJECT

public:
    explicit CDlgAddAutomobilInformationSales(EditorMode mode, QWidget *parent = nullptr);
    ~CDlgAddAutomobilInformationSales() override;

    // The tariff chosen on the page, if any, sets the notary's cost in place of the stored one.
    // That it will offer its choices, and be filled with that car (KReadAhead).
    static void expectChoices();
    static void expectFill(const CTblAutomobilInformations &car);
    void fill(CTblAutomobilInformations &car) override;
    // The page has no checks of its own.
    [[nodiscard]] bool validate() override;
    void write(CTblAutomobilInformations &car) override;
    void follow(CTblAutomobilInformations &car) override;
    QHash<QString, Entry> furtherEntries() const override;

    KForm *form() const override { return m_form; }
    PersonGroup *buyer() const { return m_buyer; }
    // Key of the tariff chosen last. No column keeps it: a car that is opened again has none.
    int tariffID() const { return m_tariffID; }
    // Lets the user choose a notary tariff, whose amount is then the notary's cost.
    void pickTariff();
    // The plate of the car that is sold; it is entered on another page.
    void showPlate(const QString &plate);
    PlatePicture *plate() const { return m_plate; }

private:
    void build();
    QWidget *buildState(QWidget *content);
    QWidget *buildTransfer(QWidget *content);
    QWidget *buildAmounts(QWidget *content);
    QWidget *buildResult(QWidget *content);
    QWidget *buildClearance(QWidget *content);
    void takeTariff();
    void recompute();

    KForm *m_form = nullptr;
    PersonGroup *m_buyer = nullptr;
    ItemFields *m_items = nullptr;
    PlatePicture *m_plate = nullptr;
    int m_tariffID = 0;
};
