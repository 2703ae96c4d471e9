// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CarPricePaper.h"

#include "auto/cars/prices/CarPriceSheet.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/papers/CDlgPaper.h"

using namespace Qt::StringLiterals;

void CarPricePaper::show(qint32 carID, QWidget *parent)
{
    QString refusal;
    const auto make = [&] {
        refusal = CarPriceSheet::refusal(carID);
        const std::optional<PaperSheet> sheet = refusal.isEmpty() ? CarPriceSheet::read(carID) : std::nullopt;
        if (!sheet && refusal.isEmpty())
            refusal = u"این خودرو دیگر وجود ندارد."_s;
        return sheet ? QList<PaperSheet>{*sheet} : QList<PaperSheet>();
    };
    CDlgPaper::run(u"AutomobilInformations"_s, KSecurity::PrintList, make, refusal, parent);
}
