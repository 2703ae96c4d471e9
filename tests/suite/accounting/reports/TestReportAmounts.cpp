// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportOutput.h"
#include "suite/utility/entries/CutNumber.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr double largest = 987'654'321'987'654;

QVector<KListModel::Column> amountColumns(int count)
{
    QVector<KListModel::Column> columns;
    for (int column = 0; column < count; ++column)
        columns.append({u"مبلغ %1"_s.arg(column), Qt::AlignCenter, 80});
    return columns;
}

ListReport amounts(int count)
{
    KListModel::Row row{1, {}};
    for (int column = 0; column < count; ++column)
        row.cells.append({DToMoney(largest - column), largest - column});
    ListReport report(u"گالری اتومبیل"_s, u"مبلغ"_s);
    report.setTable(u"List"_s, amountColumns(count), {row});
    report.buildStandard(u"مبلغ"_s);
    return report;
}

// The numbers on paper, each as far as it stands together.
QStringList printedNumbers(const ListReport &report)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.pdf"_s);
    if (!ReportOutput::writePdf(report, path))
        return {u"not written"_s};
    QProcess process;
    process.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    if (!process.waitForFinished(60'000))
        return {u"not read"_s};
    const QString text = QString::fromUtf8(process.readAllStandardOutput()).normalized(QString::NormalizationForm_KC);
    QStringList numbers;
    static const QRegularExpression number(u"[0-9,]{4,}|#+"_s);
    for (auto match = number.globalMatch(text); match.hasNext();)
        numbers.append(match.next().captured());
    return numbers;
}

}

class TestReportAmounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void amountsAreNotBroken_data()
    {
        QTest::addColumn<int>("columns");
        QTest::newRow("one") << 1;
        QTest::newRow("as many as fit") << 5;
        QTest::newRow("more than fit on one sheet") << 14;
    }

    void amountsAreNotBroken()
    {
        QFETCH(int, columns);
        const QStringList numbers = printedNumbers(amounts(columns));
        for (int column = 0; column < columns; ++column)
            QVERIFY2(numbers.contains(DToMoney(largest - column)), qPrintable(numbers.join(u' ')));
        // The first column stands on each sheet; nothing else but whole amounts does.
        for (const QString &number : numbers)
            QCOMPARE(number.size(), DToMoney(largest).size());
    }

    void anAmountWithoutRoomIsMarked()
    {
        ListReport report = amounts(3);
        ReportLayout layout = report.layout();
        const QList<double> shares{80, 10, 10};
        layout.columns.clear();
        for (int column = 0; column < 3; ++column)
            layout.columns.append({amountColumns(3).at(column).title, shares.at(column)});
        layout.fontSize = ReportLayout::highestFontSize;
        report.setLayout(layout);
        QStringList numbers = printedNumbers(report);
        numbers.sort();
        QCOMPARE(numbers, (QStringList{CutNumber::mark(), CutNumber::mark(), DToMoney(largest)}));
    }
};

static const RegisteredTest<TestReportAmounts, QApplication> registeredReportAmounts;
#include "TestReportAmounts.moc"
