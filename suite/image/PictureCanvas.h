// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"

#include <QImage>
#include <QWidget>

// One picture on its ground: as large as it fits, or enlarged further and moved with the mouse.
class TZIMAGE_EXPORT PictureCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit PictureCanvas(QWidget *parent);

    // From now on as large as it fits. instead: what stands there for a picture that is null.
    void setImage(const QImage &image, const QString &instead);
    const QImage &image() const { return m_image; }

    void enlarge();
    void reduce(); // never below the size that fits
    void fit();
    bool isFitted() const { return m_scale <= fittingScale(); }
    // The picture's place in the widget, which may be larger than the widget.
    QRect pictureRect() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    double fittingScale() const;
    double scale() const;
    // The point of the picture under that place of the widget stays there.
    void scaleTo(double scale, const QPointF &place);
    void moveBy(const QPointF &distance);

    QImage m_image;
    QString m_instead;
    double m_scale = 0; // widget's pixels for one of the picture's; 0: as it fits
    QPointF m_middle;   // the picture's point in the middle of the widget
    QPoint m_pressed;
};
