// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/AccessFileReader.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString modules = u"" TZ_BUILT_MODULES ""_s;

struct Answer
{
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

// The helper with that input, as the program starts it, but for the compiler that a start so short has no use for.
Answer answerTo(const QByteArray &input)
{
    QProcess helper;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    helper.setProcessEnvironment(environment);
    helper.start(u"java"_s,
                 {u"-XX:+UseSerialGC"_s, u"-XX:TieredStopAtLevel=1"_s, u"-Xmx96m"_s,
                  u"-jar"_s, modules + u"/taxfile/tztaxfile.jar"_s});
    if (!helper.waitForStarted())
        return {};
    helper.write(input);
    helper.closeWriteChannel();
    if (!helper.waitForFinished(60'000))
        return {};
    return {helper.exitCode(), helper.readAllStandardOutput(), helper.readAllStandardError()};
}

}

// What the helper makes of an input that is not the program's, and of values that a file does not take.
class TestTaxFileHelper : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QByteArray path() const { return m_folder->filePath(u"پرونده.mdb"_s).toUtf8(); }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void makesEveryKindOfField()
    {
        const Answer made = answerTo("create\t" + path()
                                     + "\ntable\tهمه\nfield\tt\ttext\t10\nfield\tm\tmemo\t0\nfield\ty\tbyte\t0\n"
                                       "field\ts\tshort\t0\nfield\tl\tlong\t0\nfield\td\tdouble\t0\n"
                                       "field\tc\tmoney\t0\nfield\tb\tboolean\t0\nend\n");
        QCOMPARE(made.output, QByteArray("done\t0\n"));
        QCOMPARE(made.status, 0);
        const Answer filled = answerTo("open\t" + path()
                                       + "\nselect\tهمه\tb\tc\td\tl\ts\ty\tm\tt\n"
                                         "add\t1\t12.3456\t0.5\t-2147483648\t-32768\t255\tمتن\tکوتاه\n"
                                         "add\t0\t\t\t\t\t\t\t\n"
                                         "add\t0\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\nend\n");
        QVERIFY2(filled.output.endsWith("done\t3\n"), filled.output.constData());
        const AccessFileReader file(QString::fromUtf8(path()));
        QCOMPARE(file.version(), u"JET4"_s);
        const QVector<QJsonObject> records = file.records(u"همه"_s);
        QCOMPARE(records.size(), 3);
        const QJsonObject first = records.first();
        QCOMPARE(first.value(u"t"_s).toString(), u"کوتاه"_s);
        QCOMPARE(first.value(u"m"_s).toString(), u"متن"_s);
        QCOMPARE(first.value(u"y"_s).toInt(), 255);
        QCOMPARE(first.value(u"s"_s).toInt(), -32768);
        QCOMPARE(first.value(u"l"_s).toDouble(), -2147483648.0);
        QCOMPARE(first.value(u"d"_s).toDouble(), 0.5);
        QCOMPARE(first.value(u"b"_s).toInt(), 1);
        QCOMPARE(first.value(u"c"_s).toVariant().toDouble(), 12.3456);
        for (const QJsonObject &empty : {records.at(1), records.at(2)})
            QCOMPARE(empty.keys(), QStringList{u"b"_s});
    }

    void badInputIsRefused_data()
    {
        QTest::addColumn<QByteArray>("input"); // PATH stands for a file of the template
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<int>("status");
        const QByteArray open = "open\tPATH\n";
        const QByteArray select = open + "select\tForoush\tID\tSeason\tYear\n";
        const QByteArray bad = "error\tbad-input\t";
        QTest::newRow("nothing") << QByteArray() << bad << 2;
        QTest::newRow("no file named") << QByteArray("open\n") << bad << 2;
        QTest::newRow("empty name") << QByteArray("open\t\n") << bad << 2;
        QTest::newRow("name without a value") << QByteArray("open\t\\N\n") << bad << 2;
        QTest::newRow("another first word") << QByteArray("delete\tPATH\nend\n") << bad << 2;
        QTest::newRow("no such file") << QByteArray("open\t/none/such\nend\n") << QByteArray("error\tno-file\t/none/such") << 3;
        QTest::newRow("a folder") << QByteArray("open\t/tmp\nend\n") << QByteArray("error\tno-file") << 3;
        QTest::newRow("no access file") << QByteArray("open\t" TZ_BUILT_MODULES "/TTMS.mapping.json\nend\n")
                                        << QByteArray("error\tdamaged\t") << 3;
        QTest::newRow("no folder for a new file") << QByteArray("create\t/none/such/x.mdb\nend\n") << QByteArray("error\tfile\t") << 3;
        QTest::newRow("no end") << select + "add\ta\t1\t1404\n"
                                << bad + "the input ends" << 2;
        QTest::newRow("cut off in a line") << select + "add\ta\t1\t14" << bad + "the last line is cut off" << 2;
        QTest::newRow("line too long") << select + "add\t" + QByteArray(2 << 20, 'a') + "\nend\n"
                                       << bad + "a line is too long" << 2;
        QTest::newRow("not UTF-8") << select + "add\t\xff\xfe\t1\t1404\nend\n"
                                   << bad + "a line is not UTF-8" << 2;
        QTest::newRow("unknown escape") << select + "add\t\\x\t1\t1404\nend\n"
                                        << bad + "unknown escape" << 2;
        QTest::newRow("backslash at the end") << select + "add\ta\t1\t1404\\\nend\n"
                                              << bad + "a word ends" << 2;
        QTest::newRow("unknown command") << select + "drop\tForoush\nend\n"
                                         << bad + "no such command" << 2;
        QTest::newRow("empty line") << select + "\nend\n"
                                    << bad + "no such command" << 2;
        QTest::newRow("no table selected") << open + "add\ta\nend\n"
                                           << bad + "no table is selected" << 2;
        QTest::newRow("table without fields") << open + "select\tForoush\nend\n"
                                              << bad << 2;
        QTest::newRow("field twice") << open + "select\tForoush\tID\tid\nend\n"
                                     << bad + "a field is named twice" << 2;
        QTest::newRow("too few values") << select + "add\ta\t1\nend\n"
                                        << bad + "a record has another number" << 2;
        QTest::newRow("too many values") << select + "add\ta\t1\t2\t3\nend\n"
                                         << bad + "a record has another number" << 2;
        QTest::newRow("no such table") << open + "select\tNone\tID\nend\n"
                                       << QByteArray("error\tno-table\tNone\n") << 4;
        QTest::newRow("no such field") << open + "select\tForoush\tNone\nend\n"
                                       << QByteArray("error\tno-field\tForoush\tNone\n") << 4;
        QTest::newRow("text too long") << select + "add\t" + QByteArray(39, 'a') + "\t1\t1404\nend\n"
                                       << QByteArray("error\ttoo-long\tForoush\tID\t1\t38\n") << 5;
        QTest::newRow("no number") << select + "add\ta\tx\t1404\nend\n"
                                   << QByteArray("error\tbad-value\tForoush\tSeason\t1\tx\n") << 5;
        QTest::newRow("number out of range") << select + "add\ta\t1\t1\nadd\ta\t32768\t1404\nend\n"
                                             << QByteArray("error\tbad-value\tForoush\tSeason\t2\t32768\n") << 5;
        QTest::newRow("decimals in a whole number") << select + "add\ta\t1.5\t1404\nend\n"
                                                    << QByteArray("error\tbad-value") << 5;
        QTest::newRow("exponent that would fill the memory") << select + "add\ta\t1\t1e2000000000\nend\n"
                                                             << QByteArray("error\tbad-value") << 5;
        QTest::newRow("number of a thousand digits") << select + "add\ta\t1\t" + QByteArray(1000, '0') + "\nend\n"
                                                     << QByteArray("error\tbad-value") << 5;
        QTest::newRow("flag that is none") << open + "select\tForoush_Detail\tReturned\nadd\tyes\nend\n"
                                           << QByteArray("error\tbad-value") << 5;
        QTest::newRow("length of no field") << QByteArray("create\tNEW\ntable\tt\nfield\tf\ttext\t256\nend\n") << bad + "no number from 1 to 255" << 2;
        QTest::newRow("type that is none") << QByteArray("create\tNEW\ntable\tt\nfield\tf\tpicture\t1\nend\n") << bad + "no such type" << 2;
        QTest::newRow("field before a table") << QByteArray("create\tNEW\nfield\tf\ttext\t1\nend\n") << bad << 2;
        QTest::newRow("table that is empty") << QByteArray("create\tNEW\ntable\tt\nend\n") << QByteArray("error\tbad-table") << 4;
    }

    void badInputIsRefused()
    {
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, words);
        QFETCH(int, status);
        QVERIFY(QFile::copy(modules + u"/TTMS.mdb"_s, QString::fromUtf8(path())));
        const QByteArray fresh = m_folder->filePath(u"new.mdb"_s).toUtf8();
        const Answer answer = answerTo(input.replace("PATH", path()).replace("NEW", fresh));
        QVERIFY2(answer.output.startsWith(words), (answer.output + answer.errors).constData());
        QCOMPARE(answer.output.count('\n'), 1);
        QCOMPARE(answer.status, status);
        QVERIFY2(answer.errors.isEmpty(), answer.errors.constData());
    }

    void manyLargeRecordsNeedLittleMemory()
    {
        const QByteArray made = answerTo("create\t" + path() + "\ntable\tt\nfield\tm\tmemo\t0\nend\n").output;
        QCOMPARE(made, QByteArray("done\t0\n"));
        QByteArray input = "open\t" + path() + "\nselect\tt\tm\n";
        for (int i = 0; i < 1500; ++i)
            input += "add\t" + QByteArray(65'000, 'a') + '\n';
        const Answer answer = answerTo(input + "end\n");
        QVERIFY2(answer.output.endsWith("done\t1500\n"), answer.output.right(200).constData());
        QCOMPARE(AccessFileReader(QString::fromUtf8(path())).count(u"t"_s), 1500);
    }
};

static const RegisteredTest<TestTaxFileHelper, QCoreApplication> registeredTaxFileHelper;
#include "TestTaxFileHelper.moc"
