// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/look/HostColors.h"

#include <QLabel>

// A course's name behind a dot of its colour.
class ChartLegend : public QLabel
{
    Q_OBJECT

public:
    ChartLegend(HostColors::Role ink, const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    HostColors::Role m_ink;
};
