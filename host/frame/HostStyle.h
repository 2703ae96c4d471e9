// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

// The shapes of the program's controls, in the colours of HostColors and the measures of LookSizes: panels, fields, buttons, cards,
// tabs, rows, titles of lists, menus, the focus ring. It also corrects what the base style gets wrong from right to left. What a
// control is in its window it learns from LookMarks.
class HostStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    HostStyle();

    // Sets the fonts of those kinds of control that have one of their own. To be called when the application's font is set.
    static void applyFonts();

    void polish(QWidget *widget) override;
    void polish(QApplication *application) override;
    using QProxyStyle::polish;
    void unpolish(QApplication *application) override;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr, const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *result = nullptr) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option = nullptr, const QWidget *widget = nullptr) const override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_altIsDown = false;
};
