// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/values/PlateText.h"

#include <QWidget>

#include <optional>

// A car's number plate as it looks on the car: always from left to right, and light in a dark look too. Where its text is no plate
// of that form it shows nothing and keeps its room, so that nothing moves while one is typed.
class TZUTILITY_EXPORT PlatePicture : public QWidget
{
    Q_OBJECT

public:
    explicit PlatePicture(QWidget *parent = nullptr);

    // In any way of writing (PlateText). What is shown is the picture's accessible name.
    void setText(const QString &text);
    bool isPlate() const { return m_plate.has_value(); }

    // In less room the picture is smaller, never cut; in more it stands at the leading edge.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::optional<PlateText> m_plate;
};
