// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/SearchPattern.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

class TestSearchPattern : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textFindsItsWaysOfWriting_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<bool>("found");
        const auto row = [](const char *name, const char16_t *typed, const char16_t *stored, bool found) {
            QTest::newRow(name) << QString::fromUtf16(typed) << QString::fromUtf16(stored) << found;
        };
        row("Persian yeh typed, Arabic stored", u"علی", u"علي", true);
        row("Arabic yeh typed, Persian stored", u"علي", u"علی", true);
        row("kaf", u"كريمي", u"کریمی", true);
        row("Persian digits", u"۲۰۶", u"پژو 206", true);
        row("Arabic digits", u"٢٠٦", u"پژو ۲۰۶", true);
        row("ASCII digits", u"206", u"پژو ٢٠٦", true);
        row("joiner stored", u"میخواهم", u"می\u200Cخواهم", true);
        row("joiner typed", u"می\u200Cخواهم", u"می خواهم", true);
        row("blank typed", u"می خواهم", u"میخواهم", true);
        row("a blank that does not break", u"می\u00A0خواهم", u"می خواهم", true);
        row("a line break stored", u"می خواهم", u"می\nخواهم", true);
        row("kashida", u"سلام", u"ســلام", true);
        row("vowel signs", u"محمد", u"مُحَمَّد", true);
        row("hamza", u"مسئول", u"مسیول", true);
        row("blanks at the ends", u"  علی ", u"علی", true);
        row("another letter", u"علی", u"عالی", false);
        row("percent is itself", u"5%7", u"5x7", false);
        row("percent typed, percent stored", u"5%7", u"5%7", true);
        row("a signs of expressions", u"a.b", u"axb", false);
        row("all signs of expressions", u"\\^$.|?*+()[]{}-/", u"\\^$.|?*+()[]{}-/", true);
        row("punctuation is not left out", u"12-3", u"123", false);
        row("nor added", u"123", u"12-3", false);
    }

    void textFindsItsWaysOfWriting()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        const QRegularExpression expression(SearchPattern::ofText(typed));
        QVERIFY2(expression.isValid(), qPrintable(expression.errorString()));
        QTEST(expression.match(stored).hasMatch(), "found");
    }

    void wildcardsStandForWhatTheyDoInLike()
    {
        const auto found = [](const QString &typed, const QString &stored) {
            return QRegularExpression(SearchPattern::ofText(typed, SearchPattern::Wildcards::Like)).match(stored).hasMatch();
        };
        QVERIFY(found(u"پ%۶"_s, u"پژو\n206"_s));
        QVERIFY(found(u"پ_و"_s, u"پژو"_s));
        QVERIFY(!found(u"پ__و"_s, u"پژو"_s));
        QVERIFY(!found(u"پ%۷"_s, u"پژو 206"_s));
    }

    void textWithoutLettersOrSignsHasNoPattern()
    {
        QVERIFY(SearchPattern::ofText(u" \u200C\u0640 "_s).isEmpty());
        QVERIFY(SearchPattern::ofWord(u"'-%"_s).isEmpty());
    }

    void onlyPlainLatinIsWrittenOneWay()
    {
        QVERIFY(SearchPattern::isWrittenOneWay(u"NAS'%_\\"_s));
        QVERIFY(!SearchPattern::isWrittenOneWay(u"NAS4"_s));
        QVERIFY(!SearchPattern::isWrittenOneWay(u"a b"_s));
        QVERIFY(!SearchPattern::isWrittenOneWay(u"علی"_s));
    }

    void charactersBeyondTheBasicPlaneAreNotStorable()
    {
        QVERIFY(SearchPattern::isStorable(u"پژو ۲۰۶"_s));
        QVERIFY(!SearchPattern::isStorable(u"پژو 🚗"_s));
    }
};

static const RegisteredTest<TestSearchPattern, QCoreApplication> registeredSearchPattern;
#include "TestSearchPattern.moc"
