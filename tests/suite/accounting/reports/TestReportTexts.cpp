// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportTexts.h"

#include "suite/utility/entries/CodeFont.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPainter>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr double lettersOfTexts = 9; // points

QImage drawnText(ReportTexts &texts, const ReportTexts::Text &text, int firstLine = 0, int lineCount = -1)
{
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    texts.draw(painter, {10, 10}, text, firstLine, lineCount);
    return image;
}

}

class TestReportTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What was kept of a text is what a text would be that nobody has drawn yet, in each of the ways in which the same words may stand.
    void keptTextsAreLikeNewOnes();
    // A list has more texts than are kept: those that had to go come back as they were.
    void textsThatWentComeBack();
    // Longer than everything that is kept together.
    void theLongestTextStands();
    void codesAreMeasuredInTheFontThatDrawsThem();
    void linesAreDrawnByTheirNumber();
};

void TestReportTexts::keptTextsAreLikeNewOnes()
{
    const QString words = u"پژو 206 تیپ 2 صندوق دار سفید رنگ"_s;
    QList<ReportTexts::Text> ways;
    for (const ReportTexts::Face face : {ReportTexts::Plain, ReportTexts::Bold, ReportTexts::Title}) {
        for (const double width : {300., 800.}) {
            for (const Qt::Alignment alignment : {Qt::AlignRight, Qt::AlignLeft, Qt::AlignHCenter})
                ways << ReportTexts::Text{words, face, width, alignment, false} << ReportTexts::Text{words, face, width, alignment, true};
        }
    }
    ReportTexts kept(QApplication::font(), lettersOfTexts);
    for (int round = 0; round < 2; ++round) {
        for (const ReportTexts::Text &way : std::as_const(ways)) {
            ReportTexts fresh(QApplication::font(), lettersOfTexts);
            QCOMPARE(kept.lines(way), fresh.lines(way));
            QCOMPARE(kept.advance(way.text, way.face), fresh.advance(way.text, way.face));
            QCOMPARE(drawnText(kept, way), drawnText(fresh, way));
        }
    }
    // And the ways do differ.
    QVERIFY(drawnText(kept, ways.at(0)) != drawnText(kept, ways.at(2)));
    QVERIFY(kept.lines(ways.at(0)) > kept.lines(ways.at(6)));
}

void TestReportTexts::textsThatWentComeBack()
{
    ReportTexts texts(QApplication::font(), lettersOfTexts);
    const ReportTexts::Text first{u"خریدار شماره 0"_s, ReportTexts::Plain, 800};
    const QImage before = drawnText(texts, first);
    const double advance = texts.advance(first.text, first.face);
    for (int i = 1; i < 60'000; ++i) {
        const QString text = u"خریدار %1"_s.arg(i);
        (void)texts.advance(text, ReportTexts::Plain);
        if (i < 12'000)
            QCOMPARE(texts.lines({text, ReportTexts::Plain, 800}), 1);
    }
    QCOMPARE(drawnText(texts, first), before);
    QCOMPARE(texts.advance(first.text, first.face), advance);
}

void TestReportTexts::theLongestTextStands()
{
    ReportTexts texts(QApplication::font(), lettersOfTexts);
    const ReportTexts::Text text{u"تسویه کامل "_s.repeated(20'000), ReportTexts::Plain, 800};
    QVERIFY(texts.lines(text) > 100);
    QVERIFY(drawnText(texts, text) != drawnText(texts, {}));
    QCOMPARE(texts.lines({u"بلی"_s, ReportTexts::Plain, 800}), 1);
}

void TestReportTexts::codesAreMeasuredInTheFontThatDrawsThem()
{
    ReportTexts texts(QApplication::font(), lettersOfTexts);
    QFont font = QApplication::font();
    font.setPixelSize(75); // 9 points
    font.setHintingPreference(QFont::PreferNoHinting);
    const QString code = u"NAAP03EE4FJ123456"_s;
    QCOMPARE(texts.advance(code, ReportTexts::Plain), QFontMetricsF(CodeFont::of(font, code)).horizontalAdvance(code));
    font.setBold(true);
    QCOMPARE(texts.advance(code, ReportTexts::Bold), QFontMetricsF(CodeFont::of(font, code)).horizontalAdvance(code));
}

void TestReportTexts::linesAreDrawnByTheirNumber()
{
    ReportTexts texts(QApplication::font(), lettersOfTexts);
    const ReportTexts::Text three{u"یک\r\nدو\nسه"_s, ReportTexts::Plain, 800};
    QCOMPARE(texts.lines(three), 3);
    QCOMPARE(texts.lines({{}, ReportTexts::Plain, 800}), 1);
    QCOMPARE(drawnText(texts, three, 1, 1), drawnText(texts, {u"دو"_s, ReportTexts::Plain, 800}));
    QCOMPARE(drawnText(texts, three, 3, 1), drawnText(texts, {}));
}

static const RegisteredTest<TestReportTexts, QApplication> registeredReportTexts;
#include "TestReportTexts.moc"
