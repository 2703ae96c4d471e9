// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptPaper.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double dotsPerMillimetre = PaperPages::resolution / 25.4;
constexpr double dotsPerPoint = PaperPages::resolution / 72.0;

constexpr double millimetres(double length)
{
    return length * dotsPerMillimetre;
}

constexpr double margin = millimetres(10);
constexpr double copyHeight = millimetres(148); // of A5 across: half of A4
constexpr double padding = millimetres(4);
constexpr double labelWidth = millimetres(32);
constexpr double lineGap = millimetres(1.6);
constexpr double signatureHeight = millimetres(24);
constexpr double footHeight = millimetres(6);
constexpr double hairline = 0.5 * dotsPerPoint;
constexpr double titlePoints = 16;
constexpr double officePoints = 11;
constexpr double textPoints = 10.5;
constexpr double leastPoints = 6.5;
constexpr double pointStep = 0.5;
constexpr double smallPoints = 8;
constexpr double leading = 1.15;

const QColor paperLine(0x80, 0x86, 0x8d);
const QColor paperQuiet(0x55, 0x5b, 0x62);
const QColor paperState(0xb3, 0x26, 0x1e, 0x66);

QFont receiptFont(double points, bool bold = false)
{
    QFont font = QApplication::font();
    font.setPixelSize(qRound(points * dotsPerPoint));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double heightOfLine(const QFont &font)
{
    return std::ceil(QFontMetricsF(font).height() * leading);
}

void layText(QTextLayout &layout, double width, Qt::Alignment alignment)
{
    QTextOption option(alignment | Qt::AlignAbsolute);
    option.setTextDirection(Qt::RightToLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
}

// The height that the text takes in that width; it is drawn where a painter is passed, and ends with the box.
double putText(QPainter *painter, const QRectF &box, const QString &text, const QFont &font, Qt::Alignment alignment = Qt::AlignRight)
{
    if (text.isEmpty())
        return 0;
    QTextLayout layout(QString(text).replace(u'\n', QChar(QChar::LineSeparator)), font);
    layText(layout, box.width(), alignment);
    const double height = heightOfLine(font);
    double y = 0;
    for (int i = 0; i < layout.lineCount(); ++i, y += height) {
        if (!painter || y + height > box.height() + 1)
            continue;
        QTextLine line = layout.lineAt(i);
        line.setPosition({0, y + (height - line.height()) / 2});
        line.draw(painter, box.topLeft());
    }
    return y;
}

QString officeAddress(const CompanyDetails &office)
{
    QStringList parts;
    for (const QString &part : {office.province, office.city, office.address}) {
        if (!part.isEmpty() && !parts.contains(part))
            parts.append(part);
    }
    QString text = parts.join(u"، "_s);
    const QString telephone = office.telephone.isEmpty() ? office.mobile : office.areaCode + office.telephone;
    if (!telephone.isEmpty())
        text += (text.isEmpty() ? QString() : u"\n"_s) + u"تلفن : "_s + telephone;
    return text;
}

}

ReceiptPaper::ReceiptPaper(const QList<ReceiptDetails> &receipts, const CompanyDetails &office, const QString &moneyUnit, Size size)
    : m_receipts(receipts)
    , m_office(office)
    , m_unit(moneyUnit)
    , m_size(size)
{
}

ReceiptPaper::~ReceiptPaper() = default;

QString ReceiptPaper::titleOf(const ReceiptDetails &receipt)
{
    return u"رسید "_s + CTblReceipts::kindName(receipt.kind);
}

int ReceiptPaper::pageCount() const
{
    return static_cast<int>(m_receipts.size());
}

QPageLayout ReceiptPaper::paper() const
{
    if (m_size == Size::A4)
        return {QPageSize(QPageSize::A4), QPageLayout::Portrait, {}};
    return {QPageSize(QPageSize::A5), QPageLayout::Landscape, {}};
}

void ReceiptPaper::paint(QPainter &painter, int page) const
{
    const ReceiptDetails &receipt = m_receipts.at(page);
    const QRectF whole({}, paperSize());
    const QRectF upper = QRectF(0, 0, whole.width(), std::min(copyHeight, whole.height())).adjusted(margin, margin, -margin, -margin);
    if (m_size == Size::A5)
        return paintCopy(painter, receipt, upper, {});
    const QString other = receipt.isPaid() ? u"نسخه دریافت‌کننده"_s : u"نسخه پرداخت‌کننده"_s;
    paintCopy(painter, receipt, upper, other);
    paintCut(painter, whole.height() / 2);
    paintCopy(painter, receipt, upper.translated(0, whole.height() / 2), u"نسخه دفتر"_s);
}

QList<ReceiptPaper::Line> ReceiptPaper::linesOf(const ReceiptDetails &receipt) const
{
    const QString words = amountInWords(receipt.amount);
    QList<Line> lines{{receipt.isPaid() ? u"پرداخت شد به :"_s : u"دریافت شد از :"_s, receipt.person, true},
                      {u"مبلغ :"_s, u"%1 %2"_s.arg(DToMoney(receipt.amount), m_unit), true},
                      {u"به حروف :"_s, words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, m_unit)},
                      {u"روش :"_s, receipt.methodText()},
                      {u"بابت :"_s, receipt.purpose},
                      {u"شرح :"_s, receipt.desc == u"بابت "_s + receipt.purpose ? QString() : receipt.desc}};
    if (receipt.isVoid())
        lines.append({u"ابطال :"_s, receipt.voidText()});
    lines.removeIf([](const Line &line) { return line.text.isEmpty(); });
    return lines;
}

void ReceiptPaper::paintCopy(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area, const QString &copy) const
{
    const double top = paintHead(painter, receipt, area);
    const QRectF box(area.left(), top, area.width(), area.bottom() - footHeight - signatureHeight - top);
    painter.setPen(QPen(paperLine, hairline));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, millimetres(2), millimetres(2));
    paintLines(painter, linesOf(receipt), box.adjusted(padding, padding / 2, -padding, -padding / 2));
    paintSignatures(painter, receipt, {area.left(), box.bottom(), area.width(), signatureHeight});

    painter.setPen(paperQuiet);
    const QRectF foot(area.left(), area.bottom() - footHeight, area.width(), footHeight);
    const QFont small = receiptFont(smallPoints);
    putText(&painter, foot, u"ثبت‌کننده : %1"_s.arg(receipt.user) + (receipt.docNum > 0 ? u"     سند حسابداری : %1"_s.arg(receipt.docNum) : QString()), small);
    putText(&painter, foot, copy, small, Qt::AlignLeft);
    if (receipt.status != CTblReceipts::valid)
        paintState(painter, receipt, box);
}

// The office at the right, the title in the middle, number and date at the left. Returns where it ends.
double ReceiptPaper::paintHead(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const
{
    const double side = area.width() * 0.36;
    const QRectF right(area.right() - side, area.top(), side, millimetres(26));
    const QRectF left(area.left(), area.top(), area.width() * 0.24, right.height());
    const QRectF middle = area.adjusted(side, 0, -side, 0);
    painter.setPen(Qt::black);
    const double name = std::min(putText(&painter, right.adjusted(0, 0, 0, -millimetres(14)), m_office.name(), receiptFont(officePoints, true)),
                                 millimetres(12));
    putText(&painter, middle, titleOf(receipt), receiptFont(titlePoints, true), Qt::AlignHCenter);
    putText(&painter, left, u"شماره : %1\nتاریخ : %2"_s.arg(QString::number(receipt.number), shamsiText(receipt.date.date())), receiptFont(textPoints), Qt::AlignRight);
    painter.setPen(paperQuiet);
    const QRectF below = right.adjusted(0, name, 0, 0);
    const double address = std::min(putText(&painter, below, officeAddress(m_office), receiptFont(smallPoints)), below.height());
    return area.top() + std::max(millimetres(14), name + address) + millimetres(2);
}

// In letters as large as the box allows.
void ReceiptPaper::paintLines(QPainter &painter, const QList<Line> &lines, const QRectF &box) const
{
    const auto put = [&](QPainter *target, double points) {
        double y = box.top();
        for (const Line &line : lines) {
            const QRectF text(box.left(), y, box.width() - labelWidth, std::max(0.0, box.bottom() - y));
            const QRectF label(text.right(), y, labelWidth, text.height());
            if (target)
                target->setPen(paperQuiet);
            const double labelHeight = putText(target, label, line.label, receiptFont(points));
            if (target)
                target->setPen(Qt::black);
            y += std::max(labelHeight, putText(target, text, line.text, receiptFont(points, line.isStrong))) + lineGap;
        }
        return y - lineGap;
    };
    double points = textPoints;
    while (points > leastPoints && put(nullptr, points) > box.bottom())
        points -= pointStep;
    put(&painter, points);
}

void ReceiptPaper::paintSignatures(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const
{
    const QString names[] = {u"دریافت‌کننده"_s, u"پرداخت‌کننده"_s};
    const QString persons[] = {receipt.isPaid() ? receipt.person : m_office.name(), receipt.isPaid() ? m_office.name() : receipt.person};
    const double width = area.width() / 2;
    double x = area.right() - width;
    for (int i = 0; i < 2; ++i, x -= width) {
        const QRectF cell = QRectF(x, area.top(), width, area.height()).adjusted(padding, millimetres(2), -padding, 0);
        painter.setPen(Qt::black);
        const double height = putText(&painter, cell, names[i], receiptFont(textPoints, true), Qt::AlignHCenter);
        painter.setPen(paperQuiet);
        QRectF person = cell.adjusted(0, height, 0, 0);
        person.setHeight(2 * heightOfLine(receiptFont(smallPoints)));
        putText(&painter, person, persons[i], receiptFont(smallPoints), Qt::AlignHCenter);
    }
}

// What counts no more says so across its lines.
void ReceiptPaper::paintState(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const
{
    constexpr double slope = -18;
    painter.save();
    painter.setPen(QPen(paperState, millimetres(1)));
    painter.translate(area.center());
    painter.rotate(slope);
    const QFont font = receiptFont(48, true);
    const QString word = CTblReceipts::statusName(receipt.status);
    const QSizeF size(QFontMetricsF(font).horizontalAdvance(word) + millimetres(16), heightOfLine(font));
    const QRectF frame(-size.width() / 2, -size.height() / 2, size.width(), size.height());
    painter.drawRoundedRect(frame, millimetres(3), millimetres(3));
    putText(&painter, frame, word, font, Qt::AlignHCenter);
    painter.restore();
}

void ReceiptPaper::paintCut(QPainter &painter, double y) const
{
    painter.setPen(QPen(paperLine, hairline, Qt::DashLine));
    painter.drawLine(QPointF(margin, y), QPointF(paperSize().width() - margin, y));
}
