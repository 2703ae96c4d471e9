// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryPage.h"

#include "auto/cars/web/GalleryFrame.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// A browser chooses its font by the language, and not every one draws Persian digits for Latin ones.
QString persian(QString text)
{
    for (QChar &c : text) {
        if (c >= u'0' && c <= u'9')
            c = QChar(0x06F0 + (c.unicode() - u'0'));
    }
    return text;
}

QString grouped(double number)
{
    return persian(QLocale(QLocale::C).toString(number, 'f', 0).replace(QRegularExpression(u"(?<=[0-9])(?=(?:[0-9]{3})+$)"_s), u"٬"_s));
}

QString escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(u'\'', u"&#39;"_s);
}

bool showsPrice(const GalleryHead &head, const GalleryCar &car)
{
    return head.withPrices && car.price > 0;
}

QString pictures(const GalleryCar &car)
{
    if (car.pictures.isEmpty())
        return u"<div class=\"none\">بدون تصویر</div>"_s;
    QString html;
    for (qsizetype i = 0; i < car.pictures.size(); ++i) {
        const QString name = car.pictures.size() == 1 ? car.name() : u"%1، تصویر %2"_s.arg(car.name(), persian(QString::number(i + 1)));
        html += u"<a href=\"%1\"><img src=\"%2\" alt=\"%3\" loading=\"lazy\"></a>"_s.arg(escaped(car.pictures.at(i).large), escaped(car.pictures.at(i).small), escaped(name));
    }
    return u"<div class=\"pictures\">"_s + html + u"</div>"_s;
}

QString facts(const GalleryCar &car)
{
    const std::pair<QString, QString> table[] = {
        {u"سال تولید"_s, car.year > 0 ? persian(QString::number(car.year)) : QString()},
        {u"رنگ"_s, car.color},
        {u"سوخت"_s, car.fuel},
        {u"کارکرد"_s, car.mileage > 0 ? grouped(car.mileage) + u" کیلومتر"_s : QString()},
    };
    QString html;
    for (const auto &[name, value] : table) {
        if (!value.isEmpty())
            html += u"<dt>"_s + name + u"</dt><dd>"_s + escaped(value) + u"</dd>"_s;
    }
    return html.isEmpty() ? html : u"<dl>"_s + html + u"</dl>"_s;
}

QString card(const GalleryHead &head, const GalleryCar &car)
{
    const bool priced = showsPrice(head, car);
    const QString price = priced ? grouped(car.price) + u' ' + escaped(head.moneyUnit) : u"توافقی"_s;
    return u"<li class=\"car\" data-brand=\""_s + escaped(car.brand) + u"\" data-year=\""_s + QString::number(car.year) + u"\" data-price=\""_s
        + (priced ? QString::number(car.price, 'f', 0) : QString()) + u"\">"_s + pictures(car) + u"<h2>"_s + escaped(car.name()) + u"</h2>"_s + facts(car)
        + u"<p class=\"price\">"_s + price + u"</p></li>\n"_s;
}

// The brands that are there, each once.
QString brands(const QList<GalleryCar> &cars)
{
    QMap<QString, bool> names;
    for (const GalleryCar &car : cars) {
        if (!car.brand.isEmpty())
            names.insert(car.brand, true);
    }
    QString html;
    for (const QString &name : names.keys())
        html += u"<option>"_s + escaped(name) + u"</option>"_s;
    return html;
}

// A telephone that can be dialled by a touch; only its digits enter the link.
QString contact(const GalleryHead &head)
{
    QString html;
    QString digits;
    for (const QChar c : head.telephone) {
        if (c.digitValue() >= 0)
            digits += QString::number(c.digitValue());
    }
    if (!digits.isEmpty())
        html += u"<p>تلفن: <a href=\"tel:%1\" dir=\"ltr\">%2</a></p>"_s.arg(digits, escaped(persian(head.telephone)));
    if (!head.address.isEmpty())
        html += u"<p>"_s + escaped(persian(head.address)) + u"</p>"_s;
    return html;
}

}

QString GalleryCar::name() const
{
    // A model is often named with its brand.
    QStringList parts{model.startsWith(brand) ? QString() : brand, model, trim};
    parts.removeAll(QString());
    return parts.isEmpty() ? u"خودرو"_s : parts.join(u' ');
}

// Put together piece by piece: a text that is filled into a pattern could hold a placeholder of the pattern.
QByteArray GalleryPage::made(const GalleryHead &head, const QList<GalleryCar> &cars)
{
    QString html = GalleryFrame::beginning() + u"<title>"_s + escaped(head.title) + u"</title></head>\n<body><header><h1>"_s + escaped(head.title) + u"</h1>"_s
        + contact(head) + u"</header>\n<main>"_s + GalleryFrame::filter(brands(cars), head.withPrices, escaped(head.moneyUnit)) + u"<ul id=\"cars\">\n"_s;
    for (const GalleryCar &car : cars)
        html += card(head, car);
    return (html + u"</ul></main>\n"_s + GalleryFrame::script() + u"</body></html>\n"_s).toUtf8();
}
