// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class PriceChart;

// What a car was offered for since it came: when, by whom, how much more or less ("تاریخچه قیمت").
class CDlgPriceHistory final : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgPriceHistory(int carID, QWidget *parent = nullptr);
    ~CDlgPriceHistory() override;

    static void Show(int carID, QWidget *parent);

    KExtListCtrl *list() const { return m_list; }

private:
    void build();
    void fill(int carID);

    KExtListCtrl *m_list = nullptr;
    PriceChart *m_chart = nullptr;
};
