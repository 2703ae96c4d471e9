// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/whatif/DealEstimate.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/frame/KDialog.h"

#include <QHash>

class CardPage;
class FormGrid;
class KEdit;
class QHBoxLayout;

// What a deal would bring, while its price is typed ("برآورد معامله"): commission of both sides, tax, duty, instalments, margin; and a sheet of it for
// the customer, without what is the office's own. Nothing is saved.
class CDlgDealWhatIf final : public KDialog
{
    Q_OBJECT

public:
    // What is known of the deal at first, in the suite's money unit; 0 for what is not.
    struct Facts
    {
        QString car; // as people call it
        double price = 0;
        double purchase = 0;
        double expenses = 0;
        double notary = 0;
    };

    explicit CDlgDealWhatIf(const Facts &facts, QWidget *parent = nullptr);
    ~CDlgDealWhatIf() override;

    // Of a car of the register; nothing for one that is gone. price: another than the car's; 0: the car's.
    static void ShowCar(int carID, double price, QWidget *parent);
    static void Show(const Facts &facts, QWidget *parent);

    // By a plain name, such as "price" and "margin".
    KEdit *edit(const QString &name) const { return m_edits.value(name); }
    const DealEstimate &estimate() const { return m_deal; }
    // What the customer gets.
    ListReport sheet() const;

private:
    void build();
    KEdit *add(FormGrid *grid, const QString &name, const QString &label, int span = 1, bool isResult = false, QHBoxLayout *row = nullptr);
    KEdit *addNumber(FormGrid *grid, const QString &name, const QString &label, bool isPercent);
    void buildPrice(CardPage *page);
    void buildInstalments(CardPage *page);
    void buildResults(CardPage *page);
    void pickTariff();
    void recompute();
    void showResults();
    void print();
    DealTerms terms() const;
    double number(const char *name) const;

    const QString m_car;
    CommissionTiers m_tiers;
    double m_taxPercent = 0;
    double m_dutyPercent = 0;
    QString m_moneyUnit;
    QDate m_today;
    QHash<QString, KEdit *> m_edits;
    DealEstimate m_deal;
};
