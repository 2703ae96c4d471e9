// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/LookIcons.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using HostColors::Role;

// The strokes as the pictures are drawn.
constexpr char firstStroke[] = "#788592";
constexpr char secondStroke[] = "#1a8fa3";

const QByteArray &drawing(const QString &path)
{
    static QHash<QString, QByteArray> read;
    const auto known = read.constFind(path);
    if (known != read.cend())
        return *known;
    QFile file(path);
    return *read.insert(path, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

class LookIconEngine : public QIconEngine
{
public:
    LookIconEngine(QString path, std::optional<Role> ink)
        : m_path(std::move(path))
        , m_ink(ink)
    {
    }

    const QString &path() const { return m_path; }

    QIconEngine *clone() const override { return new LookIconEngine(*this); }
    QString key() const override { return u"TzLookIcon"_s; }
    QString iconName() override { return m_path; }
    bool isNull() override { return drawing(m_path).isEmpty(); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->drawPixmap(rect, scaledPixmap(rect.size(), mode, QIcon::Off, painter->device()->devicePixelRatio()));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal scale) override
    {
        const auto [first, second] = inks(mode);
        const QString key = u"tzicon %1 %2x%3@%4 %5 %6"_s.arg(m_path).arg(size.width()).arg(size.height()).arg(scale).arg(first.rgba()).arg(second.rgba());
        QPixmap made;
        if (!QPixmapCache::find(key, &made)) {
            made = render(size * scale, first, second);
            made.setDevicePixelRatio(scale);
            QPixmapCache::insert(key, made);
        }
        return made;
    }

private:
    std::pair<QColor, QColor> inks(QIcon::Mode mode) const
    {
        if (mode == QIcon::Disabled)
            return {HostColors::of(Role::Disabled), HostColors::of(Role::Disabled)};
        if (m_ink)
            return {HostColors::of(*m_ink), HostColors::of(*m_ink)};
        return {HostColors::of(Role::Icon), HostColors::of(Role::Icon2)};
    }

    QPixmap render(const QSize &size, const QColor &first, const QColor &second) const
    {
        QByteArray text = drawing(m_path);
        text.replace(firstStroke, first.name().toLatin1());
        text.replace(secondStroke, second.name().toLatin1());
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QSvgRenderer svg(text);
        svg.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&picture);
        svg.render(&painter, QRectF(QPointF(), QSizeF(size)));
        return picture;
    }

    QString m_path;
    std::optional<Role> m_ink;
};

QIcon make(const QString &path, std::optional<Role> ink)
{
    return path.isEmpty() ? QIcon() : QIcon(new LookIconEngine(path, ink));
}

}

QIcon LookIcons::icon(const QString &path)
{
    return make(path, std::nullopt);
}

QIcon LookIcons::icon(const QString &path, HostColors::Role ink)
{
    return make(path, ink);
}

QIcon LookIcons::inked(const QIcon &icon, HostColors::Role ink)
{
    const QString path = icon.name();
    return path.startsWith(u":/"_s) ? make(path, ink) : icon;
}
