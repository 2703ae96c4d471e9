// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/CDlgKeys.h"
#include "host/manual/CDlgManual.h"
#include "host/manual/ManualContents.h"
#include "host/manual/ManualKey.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

KEdit *searchOf(const CDlgManual &manual)
{
    return named<KEdit>(manual, u"جستجو در راهنما"_s);
}

QTextBrowser *textOf(const CDlgManual &manual)
{
    return named<QTextBrowser>(manual, u"صفحه راهنما"_s);
}

bool says(const QWidget &manual, const QString &words)
{
    const QList<QLabel *> labels = manual.findChildren<QLabel *>();
    return std::any_of(labels.cbegin(), labels.cend(), [&](const QLabel *label) { return label->isVisible() && label->text() == words; });
}

}

class TestCDlgManual : public QObject
{
    Q_OBJECT

    // Typed by a user: what the window system refuses does not arrive.
    static bool takesKeys(CDlgManual &manual)
    {
        KEdit *typed = searchOf(manual);
        typed->clear();
        manual.activateWindow();
        typed->setFocus();
        QTest::keyClick(manual.windowHandle(), Qt::Key_A);
        const bool arrived = typed->text() == u"a";
        typed->clear();
        return arrived;
    }

private Q_SLOTS:
    void f1OpensThePageOfTheWindow()
    {
        ManualKey key;
        CDlgKeys keys({});
        keys.show();
        QVERIFY(QTest::qWaitForWindowActive(&keys));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        QVERIFY(key.manual() && key.manual()->isVisible());
        QCOMPARE(key.manual()->page(), u"keys"_s);
        QVERIFY(textOf(*key.manual())->toPlainText().startsWith(u"کلیدها"));
        // In the manual itself it is the page about the manual; with another key of it, nothing.
        QTest::keyClick(textOf(*key.manual()), Qt::Key_F1);
        QCOMPARE(key.manual()->page(), u"main-window"_s);
        QTest::keyClick(keys.focusWidget(), Qt::Key_F1, Qt::ShiftModifier);
        QCOMPARE(key.manual()->page(), u"main-window"_s);
    }

    void aWindowWithoutAPageGetsTheContents()
    {
        ManualKey key;
        QDialog stranger;
        stranger.show();
        QTest::keyClick(&stranger, Qt::Key_F1);
        QVERIFY(key.manual());
        QCOMPARE(key.manual()->page(), u"index"_s);
        QVERIFY(says(*key.manual(), u"این پنجره صفحه‌ای از خود در راهنما ندارد."_s));
        key.manual()->showPage(u"keys"_s);
        QVERIFY(!says(*key.manual(), u"این پنجره صفحه‌ای از خود در راهنما ندارد."_s));
        key.manual()->showPage(u"nowhere"_s);
        QCOMPARE(key.manual()->page(), u"index"_s);
        QVERIFY(says(*key.manual(), u"این صفحه در راهنما نیست."_s));
    }

    void itIsReadBesideAModalWindow()
    {
        ManualKey key;
        CDlgKeys first({});
        CDlgKeys second({});
        QList<bool> arrived;
        QTimer::singleShot(0, &first, [&] {
            QTest::keyClick(first.focusWidget(), Qt::Key_F1);
            arrived.append(takesKeys(*key.manual()));
            QTimer::singleShot(0, &second, [&] {
                arrived.append(takesKeys(*key.manual()));
                second.reject();
            });
            second.exec();
            QCoreApplication::processEvents();
            arrived.append(takesKeys(*key.manual()));
            first.reject();
        });
        first.exec();
        QCoreApplication::processEvents();
        QVERIFY(key.manual()->isVisible());
        arrived.append(takesKeys(*key.manual()));
        QCOMPARE(arrived, (QList<bool>{true, true, true, true}));
    }

    void searchMarksItsHitsAndLeadsOn()
    {
        CDlgManual manual;
        manual.show();
        QVERIFY(QTest::qWaitForWindowActive(&manual));
        searchOf(manual)->setText(u"سطل بازيافت"_s);
        auto *contents = manual.findChild<ManualContents *>();
        QVERIFY(contents->shownPages().contains(u"bin"_s));
        QVERIFY(contents->shownPages().size() < 40);
        manual.showPage(u"bin"_s);
        QVERIFY(textOf(manual)->extraSelections().size() > 2);
        // On through a page and to the next one, round to the first.
        searchOf(manual)->setText(u"خط‌چین"_s);
        QCOMPARE(contents->shownPages(), QStringList{u"today"_s});
        searchOf(manual)->setText(u"شانزده رقم"_s);
        const QStringList shown = contents->shownPages();
        QVERIFY(shown.size() > 1);
        QSet<QString> read;
        for (int hit = 0; hit < 60 && read.size() < shown.size(); ++hit) {
            QTest::keyClick(searchOf(manual), Qt::Key_Return);
            QVERIFY2(textOf(manual)->textCursor().hasSelection(), qPrintable(manual.page()));
            read.insert(manual.page());
        }
        QCOMPARE(read, QSet<QString>(shown.cbegin(), shown.cend()));
        searchOf(manual)->setText(u"زززز"_s);
        QVERIFY(contents->shownPages().isEmpty());
        QVERIFY(textOf(manual)->extraSelections().isEmpty());
        QVERIFY(says(manual, u"پیدا نشد"_s));
        searchOf(manual)->clear();
        QVERIFY(contents->shownPages().size() > 40);
    }

    void linksLeadOnAndBack()
    {
        CDlgManual manual;
        manual.show();
        QVERIFY(QTest::qWaitForWindowActive(&manual));
        auto *back = captioned<QPushButton>(manual, u"بازگشت"_s);
        auto *forward = captioned<QPushButton>(manual, u"جلو"_s);
        QVERIFY(!back->isEnabled() && !forward->isEnabled());
        Q_EMIT textOf(manual)->anchorClicked(QUrl(u"keys.md"_s));
        Q_EMIT textOf(manual)->anchorClicked(QUrl(u"bin.md"_s));
        QCOMPARE(manual.page(), u"bin"_s);
        QTest::keyClick(&manual, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(manual.page(), u"keys"_s);
        back->click();
        QCOMPARE(manual.page(), u"index"_s);
        QVERIFY(!back->isEnabled());
        forward->click();
        QCOMPARE(manual.page(), u"keys"_s);
        // By the keyboard alone.
        textOf(manual)->setFocus();
        QTest::keyClick(textOf(manual), Qt::Key_Left);
        QTest::keyClick(textOf(manual), Qt::Key_Return);
        QVERIFY(manual.page() != u"keys");
        QTest::keyClick(&manual, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(manual.page(), u"keys"_s);
        // A new way ends the one that was gone back from.
        manual.showPage(u"search"_s);
        QVERIFY(!forward->isEnabled());
    }
};

static const RegisteredTest<TestCDlgManual, QApplication> registeredCDlgManual;
#include "TestCDlgManual.moc"
