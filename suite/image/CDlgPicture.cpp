// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/CDlgPicture.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>
#include <QScreen>

namespace {

QSize smallest()
{
    return {LookSizes::scaled(320), LookSizes::scaled(240)};
}

// A label's colon does not belong into a title.
QString withoutColon(QString title)
{
    if (title.endsWith(u':'))
        title.chop(1);
    return title.trimmed();
}

}

CDlgPicture::CDlgPicture(const QImage &image, const QString &title, QWidget *parent)
    : KDialog(parent)
    , m_image(image)
{
    setWindowTitle(withoutColon(title));
    setAccessibleName(windowTitle());
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setMinimumSize(smallest());
    // It has nothing else that could have the keys.
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
    const QSize available = (parent ? parent->screen() : screen())->availableSize() * 9 / 10;
    QSize wanted = m_image.size();
    if (wanted.width() > available.width() || wanted.height() > available.height())
        wanted.scale(available, Qt::KeepAspectRatio);
    resize(wanted.expandedTo(smallest()));
}

QRect CDlgPicture::pictureRect() const
{
    QRect target(QPoint(), m_image.size().scaled(size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    target.moveCenter(rect().center());
    return target;
}

void CDlgPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), HostColors::of(HostColors::Role::Window));
    const QRect target = pictureRect();
    const qreal ratio = devicePixelRatioF();
    const QSize dots = (QSizeF(target.size()) * ratio).toSize();
    if (m_shown.size() != dots) {
        m_shown = m_image.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_shown.setDevicePixelRatio(ratio);
    }
    painter.drawImage(target.topLeft(), m_shown);
}

void CDlgPicture::mouseDoubleClickEvent(QMouseEvent *)
{
    reject();
}
