// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureCanvas.h"

#include "suite/utility/look/HostColors.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr double zoomStep = 1.25;
constexpr double largestScale = 8;

}

PictureCanvas::PictureCanvas(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureCanvas::setImage(const QImage &image, const QString &instead)
{
    m_image = image;
    m_instead = instead;
    fit();
}

double PictureCanvas::fittingScale() const
{
    if (m_image.isNull())
        return 1;
    return std::min(double(width()) / m_image.width(), double(height()) / m_image.height());
}

double PictureCanvas::scale() const
{
    return std::max(m_scale, fittingScale());
}

void PictureCanvas::enlarge()
{
    scaleTo(scale() * zoomStep, QRectF(rect()).center());
}

void PictureCanvas::reduce()
{
    scaleTo(scale() / zoomStep, QRectF(rect()).center());
}

void PictureCanvas::fit()
{
    m_scale = 0;
    moveBy({});
    update();
}

void PictureCanvas::scaleTo(double wanted, const QPointF &place)
{
    if (m_image.isNull())
        return;
    const QPointF fromMiddle = place - QRectF(rect()).center();
    const QPointF held = m_middle + fromMiddle / scale();
    m_scale = std::min(wanted, std::max(largestScale, fittingScale()));
    if (m_scale <= fittingScale())
        m_scale = 0;
    m_middle = held - fromMiddle / scale();
    moveBy({});
    update();
}

// Never further than to the picture's edges; along a side that fits it stays in the middle.
void PictureCanvas::moveBy(const QPointF &distance)
{
    const QSizeF half = QSizeF(size()) / scale() / 2;
    const auto bounded = [](double middle, double whole, double halfSeen) {
        return whole <= 2 * halfSeen ? whole / 2 : std::clamp(middle, halfSeen, whole - halfSeen);
    };
    const QPointF middle = m_middle - distance / scale();
    m_middle = {bounded(middle.x(), m_image.width(), half.width()), bounded(middle.y(), m_image.height(), half.height())};
    setCursor(m_scale > 0 ? Qt::OpenHandCursor : Qt::ArrowCursor);
    update();
}

QRect PictureCanvas::pictureRect() const
{
    const QPointF corner = QRectF(rect()).center() - m_middle * scale();
    return QRectF(corner, QSizeF(m_image.size()) * scale()).toRect();
}

void PictureCanvas::paintEvent(QPaintEvent *)
{
    using Role = HostColors::Role;
    QPainter painter(this);
    painter.fillRect(rect(), HostColors::of(Role::Window));
    if (m_image.isNull()) {
        painter.setPen(HostColors::of(Role::Danger));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_instead);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(pictureRect(), m_image);
}

void PictureCanvas::resizeEvent(QResizeEvent *)
{
    if (m_scale <= fittingScale())
        m_scale = 0;
    moveBy({});
}

void PictureCanvas::wheelEvent(QWheelEvent *event)
{
    if (event->angleDelta().y() != 0)
        scaleTo(event->angleDelta().y() > 0 ? scale() * zoomStep : scale() / zoomStep, event->position());
    event->accept();
}

void PictureCanvas::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->pos();
    if (m_scale > 0)
        setCursor(Qt::ClosedHandCursor);
}

void PictureCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!event->buttons().testFlag(Qt::LeftButton) || m_scale <= 0)
        return;
    moveBy(event->pos() - m_pressed);
    setCursor(Qt::ClosedHandCursor);
    m_pressed = event->pos();
}

void PictureCanvas::mouseReleaseEvent(QMouseEvent *)
{
    moveBy({});
}

// Its window's.
void PictureCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->ignore();
}
