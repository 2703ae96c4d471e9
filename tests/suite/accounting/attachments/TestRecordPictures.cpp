// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

// A picture is written as its name here: "a" stored, "+x" a new one of the editor.
class TestRecordPictures : public QObject
{
    Q_OBJECT

    static constexpr int kind = 68;
    static constexpr int record = 7;

    TestOffice m_office;

    void run(const QString &statement) { m_office.database.run(statement); }
    QString value(const QString &statement) { return m_office.database.value(statement); }

    QString stored(int of = record)
    {
        QStringList names;
        for (const auto &picture : RecordPictures::further(kind, of))
            names.append(picture.name);
        return names.join(u' ');
    }

    static void add(RecordPictures::Change &change, const QString &name)
    {
        change.wanted.append({0, name, name.toUtf8()});
    }

    static RecordPictures::Change opened()
    {
        RecordPictures::Change change;
        for (const auto &picture : RecordPictures::further(kind, record)) {
            change.opened.append(picture.id);
            change.wanted.append({picture.id, picture.name, {}});
        }
        return change;
    }

    // As an editor that is left with these.
    static RecordPictures::Change edited(const QString &names)
    {
        const RecordPictures::Change before = opened();
        RecordPictures::Change change;
        change.opened = before.opened;
        for (const QString &name : names.split(u' ', Qt::SkipEmptyParts)) {
            if (name.startsWith(u'+'))
                add(change, name.mid(1));
            for (const auto &entry : before.wanted) {
                if (entry.name == name)
                    change.wanted.append(entry);
            }
        }
        return change;
    }

    static QString save(const RecordPictures::Change &change, const QByteArray &own = {})
    {
        QString who;
        KTransaction::runReplayable([&] { who = RecordPictures::save(kind, record, change, own); });
        return who;
    }

private Q_SLOTS:
    void init()
    {
        run(u"DELETE FROM Pictures"_s);
        run(u"DELETE FROM Changes"_s);
    }

    void changeIsPutOntoWhatIsThere_data()
    {
        QTest::addColumn<QString>("there"); // by the other desk, meanwhile
        QTest::addColumn<QString>("here");  // what the editor is left with
        QTest::addColumn<QString>("result");
        QTest::newRow("added") << u"a b c"_s << u"a b c +x"_s << u"a b c x"_s;
        QTest::newRow("added between") << u"a b c"_s << u"+x a +y b c"_s << u"x a y b c"_s;
        QTest::newRow("removed") << u"a b c"_s << u"a c"_s << u"a c"_s;
        QTest::newRow("reordered") << u"a b c"_s << u"c a b"_s << u"c a b"_s;
        QTest::newRow("all removed") << u"a b c"_s << QString() << QString();
        QTest::newRow("both added") << u"a b c +t"_s << u"a b c +x"_s << u"a b c t x"_s;
        QTest::newRow("both removed") << u"b c"_s << u"a c"_s << u"c"_s;
        QTest::newRow("both removed the same") << u"b c"_s << u"b c"_s << u"b c"_s;
        QTest::newRow("their order, my addition") << u"c b a"_s << u"a b c +x"_s << u"c b a x"_s;
        QTest::newRow("my order, their addition") << u"a b c +t"_s << u"c b a"_s << u"c b a t"_s;
        QTest::newRow("my order, their removal") << u"a c"_s << u"c b a"_s << u"c a"_s;
        QTest::newRow("nothing of mine") << u"b +t"_s << u"a b c"_s << u"b t"_s;
    }

    void changeIsPutOntoWhatIsThere()
    {
        QFETCH(QString, there);
        QFETCH(QString, here);
        QFETCH(QString, result);
        save(edited(u"+a +b +c"_s));
        QCOMPARE(stored(), u"a b c"_s);
        const RecordPictures::Change mine = edited(here);
        save(edited(there));
        save(mine);
        QCOMPARE(stored(), result);
        QCOMPARE(value(u"SELECT COUNT(DISTINCT iOrder)=COUNT(*) FROM Pictures"_s), u"1"_s);
    }

    void whoeverChangedThemMeanwhileIsNamed()
    {
        save(edited(u"+a"_s));
        const RecordPictures::Change mine = edited(u"a +x"_s);
        QCOMPARE(save(edited(u"a +t"_s)), QString());
        QVERIFY(!save(mine).isEmpty());
        QCOMPARE(stored(), u"a t x"_s);
    }

    // Another became the record's own: that of the editor is not lost with its row.
    void pictureMadeFirstGoesOnlyWhereItIsFirst_data()
    {
        QTest::addColumn<QByteArray>("own");
        QTest::addColumn<QString>("result");
        QTest::newRow("it is first") << QByteArray("b") << u"a"_s;
        QTest::newRow("another is") << QByteArray("other") << u"a b"_s;
    }

    void pictureMadeFirstGoesOnlyWhereItIsFirst()
    {
        QFETCH(QByteArray, own);
        QFETCH(QString, result);
        save(edited(u"+a +b"_s));
        RecordPictures::Change change = edited(u"a"_s);
        change.madeFirst = opened().opened.at(1);
        save(change, own);
        QCOMPARE(stored(), result);
    }

    void bytesAreThoseThatWereSaved()
    {
        const QByteArray bytes("\x00\xff'\"\\\n\x1a", 7);
        RecordPictures::Change change;
        change.wanted.append({0, u"علی's \"عکس\".jpg"_s, bytes});
        save(change);
        const auto pictures = RecordPictures::further(kind, record);
        QCOMPARE(pictures.size(), 1);
        QCOMPARE(pictures.constFirst().name, u"علی's \"عکس\".jpg"_s);
        QCOMPARE(RecordPictures::bytes(kind, record, pictures.constFirst().id), bytes);
        QCOMPARE(RecordPictures::furtherBytes(kind, record), (QHash<qint32, QByteArray>{{pictures.constFirst().id, bytes}}));
        QVERIFY(RecordPictures::furtherBytes(kind, record + 1).isEmpty());
        QCOMPARE(RecordPictures::bytes(kind, record + 1, pictures.constFirst().id), QByteArray());
        QCOMPARE(RecordPictures::bytes(kind, record, 999999), QByteArray());
    }

    void tooManyAreRefusedAndNothingIsKept()
    {
        save(edited(u"+a"_s));
        RecordPictures::Change change = edited(QString());
        for (int i = 0; i <= RecordPictures::most; ++i)
            add(change, QString::number(i));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, save(change));
        QCOMPARE(stored(), u"a"_s);
        change.wanted.removeLast();
        save(change);
        QCOMPARE(RecordPictures::further(kind, record).size(), RecordPictures::most);
    }

    void failureInTheMiddleLeavesAllAsItWas()
    {
        save(edited(u"+a +b"_s));
        const RecordPictures::Change change = edited(u"b +x"_s);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, KTransaction::runReplayable([&] {
                                     RecordPictures::save(kind, record, change, {});
                                     throw KAccountingError(u"نشد"_s);
                                 }));
        QCOMPARE(stored(), u"a b"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes"_s), u"1"_s);
    }

    void otherRecordsKeepTheirs()
    {
        save(edited(u"+a"_s));
        RecordPictures::Change other;
        add(other, u"o"_s);
        KTransaction::runReplayable([&] { RecordPictures::save(kind, record + 1, other, {}); });
        RecordPictures::deleteAll(kind, record);
        QCOMPARE(stored(), QString());
        QCOMPARE(stored(record + 1), u"o"_s);
    }

    void unchangedOnesWriteNothing()
    {
        save(edited(u"+a"_s));
        run(u"DELETE FROM Changes"_s);
        QVERIFY(opened().isEmpty());
        save(opened());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes"_s), u"0"_s);
    }
};

static const RegisteredTest<TestRecordPictures, QCoreApplication> registeredRecordPictures;

#include "TestRecordPictures.moc"
