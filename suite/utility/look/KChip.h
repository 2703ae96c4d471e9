// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QLabel>

// A short word on a soft round ground that says a state: "ذخیره نشده", "بایگانی نشده". The words say it, not the colour alone.
class TZUTILITY_EXPORT KChip : public QLabel
{
    Q_OBJECT

public:
    enum class Kind {
        Neutral,
        Info,
        Good,
        Warn,
        Danger
    };

    explicit KChip(Kind kind = Kind::Neutral, const QString &text = {}, QWidget *parent = nullptr);

    // One that is painted among others, in a view that has no widget for each; its size in the font of chips.
    static void paint(QPainter &painter, const QRect &room, Kind kind, const QString &text);
    static QSize sizeOf(const QString &text);

    Kind kind() const { return m_kind; }
    void setKind(Kind kind);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Kind m_kind;
};
