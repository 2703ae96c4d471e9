// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/PlateEdit.h"

#include "suite/utility/entries/PlateKindBox.h"
#include "suite/utility/values/PlateKind.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class TestPlateEdit : public QObject
{
    Q_OBJECT

    struct Page : QWidget
    {
        Page()
            : plate(new PlateEdit(this))
            , kind(new PlateKindBox(plate, this))
            , next(new QLineEdit(this))
        {
            auto *column = new QVBoxLayout(this);
            for (QWidget *child : {static_cast<QWidget *>(plate), static_cast<QWidget *>(kind), static_cast<QWidget *>(next)})
                column->addWidget(child);
            show();
            activateWindow();
            plate->setFocus();
        }
        PlateEdit *plate;
        PlateKindBox *kind;
        QLineEdit *next;
    };

    static void type(PlateEdit *plate, const QString &text)
    {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, plate, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }

private Q_SLOTS:
    void typingGoesFromPartToPart_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("digits and letter alone") << u"12ب34567"_s << u"12 ب 345 ایران 67"_s;
        QTest::newRow("Persian digits") << u"۱۲ب۳۴۵۶۷"_s << u"12 ب 345 ایران 67"_s;
        QTest::newRow("with blanks") << u"12 ب 345 67"_s << u"12 ب 345 ایران 67"_s;
        QTest::newRow("alef by its letter") << u"12ا34567"_s << u"12 الف 345 ایران 67"_s;
        QTest::newRow("alef by its name") << u"12الف34567"_s << u"12 الف 345 ایران 67"_s;
        QTest::newRow("half of one") << u"12ب34"_s << u"12 ب 34"_s;
        QTest::newRow("motorcycle") << u"123 45678"_s << u"123 45678"_s;
        QTest::newRow("town") << u"تهران 11 - 12345"_s << u"تهران 11 - 12345"_s;
        QTest::newRow("town behind digits") << u"12 تهران 345"_s << u"12 تهران 345"_s;
    }

    void typingGoesFromPartToPart()
    {
        QFETCH(QString, typed);
        Page page;
        type(page.plate, typed);
        QTEST(page.plate->plainText(), "shown");
    }

    void whoeverTakesBackIsNotPushedOn()
    {
        Page page;
        type(page.plate, u"12ب345"_s);
        for (int i = 0; i < 6; ++i)
            QTest::keyClick(page.plate, Qt::Key_Backspace);
        QCOMPARE(page.plate->plainText(), u"12"_s);
        type(page.plate, u"د111"_s);
        QCOMPARE(page.plate->plainText(), u"12 د 111"_s);
    }

    void aPastedPlateIsUnderstood()
    {
        Page page;
        QApplication::clipboard()->setText(u"۶۷ ایران ۳۴۵ ب ۱۲"_s);
        page.plate->paste();
        QCOMPARE(page.plate->plainText(), u"12 ب 345 ایران 67"_s);
    }

    void anOlderSpellingIsStoredAnewOnlyWhenTouched()
    {
        Page page;
        page.plate->load(u"67-345ب12"_s);
        QCOMPARE(page.plate->plainText(), u"67-345ب12"_s);
        QCOMPARE(page.plate->storedText(), u"67-345ب12"_s);
        page.next->setFocus();
        QCOMPARE(page.plate->storedText(), u"67-345ب12"_s);
        page.plate->setText(u"67-345ب13"_s);
        QCOMPARE(page.plate->storedText(), u"13 ب 345 ایران 67"_s);
    }

    void leavingTheLineShowsTheOneSpelling()
    {
        Page page;
        page.plate->setText(u"67-345ب12"_s);
        QCOMPARE(page.plate->plainText(), u"67-345ب12"_s);
        page.plate->setFocus();
        QTRY_VERIFY(page.plate->hasFocus());
        page.next->setFocus(Qt::TabFocusReason);
        QCOMPARE(page.plate->plainText(), u"12 ب 345 ایران 67"_s);
    }

    void kindFollowsTheTextAndPutsItsWordInFront()
    {
        Page page;
        QCOMPARE(page.kind->currentIndex(), int(PlateKind::Common));
        page.plate->setText(u"منطقه آزاد 12345"_s);
        QCOMPARE(page.kind->currentIndex(), int(PlateKind::FreeZone));
        page.plate->setText(u"123-45678"_s);
        QCOMPARE(page.kind->currentIndex(), int(PlateKind::Free));
        Q_EMIT page.kind->activated(PlateKind::Motorcycle);
        QCOMPARE(page.plate->plainText(), u"موتور 123-45678"_s);
        QCOMPARE(page.kind->currentIndex(), int(PlateKind::Motorcycle));
    }
};

static const RegisteredTest<TestPlateEdit, QApplication> registeredPlateEdit;
#include "TestPlateEdit.moc"
