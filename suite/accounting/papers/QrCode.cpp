// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/QrCode.h"

#include <QPainter>

#include <qrencode.h>

#include <algorithm>

QrCode::QrCode(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (bytes.isEmpty())
        return;
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(QRcode_encodeString8bit(bytes.constData(), 0, QR_ECLEVEL_M), &QRcode_free);
    if (!code)
        return;
    m_size = code->width;
    m_dark.reserve(static_cast<std::size_t>(m_size) * static_cast<std::size_t>(m_size));
    std::transform(code->data, code->data + m_size * m_size, std::back_inserter(m_dark), [](unsigned char module) { return (module & 1) != 0; });
}

void QrCode::paint(QPainter &painter, const QRectF &box) const
{
    constexpr int border = 4;
    if (isEmpty())
        return;
    const double module = std::min(box.width(), box.height()) / (m_size + 2 * border);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int y = 0; y < m_size; ++y) {
        for (int x = 0; x < m_size; ++x) {
            if (m_dark[static_cast<std::size_t>(y * m_size + x)])
                painter.fillRect(QRectF(box.left() + (x + border) * module, box.top() + (y + border) * module, module, module), Qt::black);
        }
    }
    painter.restore();
}
