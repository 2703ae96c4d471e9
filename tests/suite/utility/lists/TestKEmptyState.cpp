// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"

#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct EmptyList
{
    QWidget window;
    KExtListCtrl *list = new KExtListCtrl(&window);
    KListCard *card = new KListCard(list, &window);
    KEmptyState *empty = new KEmptyState(list);

    EmptyList()
    {
        list->setAccessibleName(u"قرارداد"_s);
        list->setColumns({{u"نام"_s, Qt::AlignRight, 80}});
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(card);
        window.resize(600, 400);
    }
    bool show()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    }
};

}

class TestKEmptyState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStandsInTheMiddleOfTheListAlsoWhenThatGrows()
    {
        EmptyList at;
        QVERIFY(at.empty->isHidden());
        at.empty->say(u":/icons/car.svg"_s, u"هنوز ردیفی ثبت نشده است."_s, u"جديد"_s);
        QVERIFY(at.show());
        const auto isCentred = [&at] {
            const QPoint off = at.empty->geometry().center() - at.list->viewport()->geometry().center();
            return qAbs(off.x()) <= 1 && qAbs(off.y()) <= 1;
        };
        QVERIFY(isCentred());
        at.window.resize(900, 600);
        QTRY_VERIFY(isCentred());
    }

    void itsButtonIsNamedByItsCaptionAndIsThereOnlyWithOne()
    {
        EmptyList at;
        at.empty->say(u":/icons/car.svg"_s, u"هنوز ردیفی ثبت نشده است."_s, u"جديد"_s);
        QVERIFY(at.show());
        QVERIFY(at.empty->button()->isVisible());
        QCOMPARE(at.empty->button()->text(), u"جديد"_s);
        // The window may have a command of that name.
        QCOMPARE(at.empty->button()->accessibleName(), u"جديد قرارداد"_s);
        QSignalSpy pressed(at.empty, &KEmptyState::pressed);
        at.empty->button()->setFocus();
        QTest::keyClick(at.empty->button(), Qt::Key_Space);
        QCOMPARE(pressed.size(), 1);
        // The focus does not fall out of the list with it.
        at.empty->say(u":/icons/car.svg"_s, u"هیچ"_s);
        QVERIFY(!at.empty->button());
        QCOMPARE(at.empty->sentence(), u"هیچ"_s);
        QCOMPARE(at.window.focusWidget(), at.list);
    }

    void itsButtonMayBeWhatMakesItGo()
    {
        EmptyList at;
        at.empty->say(u":/icons/car.svg"_s, u"هنوز ردیفی ثبت نشده است."_s, u"جديد"_s);
        QVERIFY(at.show());
        connect(at.empty, &KEmptyState::pressed, at.empty, &KEmptyState::dismiss);
        at.empty->button()->setFocus();
        QTest::keyClick(at.empty->button(), Qt::Key_Return);
        QVERIFY(!at.empty->button());
        QVERIFY(at.empty->isHidden());
        QCOMPARE(at.window.focusWidget(), at.list);
        QVERIFY(at.window.findChildren<QPushButton *>().isEmpty());
    }

    void aDoubleClickOnItIsOneBesideTheRows()
    {
        EmptyList at;
        at.empty->say(u":/icons/car.svg"_s, u"هنوز ردیفی ثبت نشده است."_s);
        QVERIFY(at.show());
        QSignalSpy beside(at.list, &KExtListCtrl::emptyAreaActivated);
        QTest::mouseDClick(at.empty, Qt::LeftButton, {}, QPoint(at.empty->width() / 2, 10));
        QCOMPARE(beside.size(), 1);
    }

    void theCardShowsTheFocusOfItsListAndTheTextsAtItsFoot()
    {
        EmptyList at;
        auto *count = new QLabel(u"تعداد : 0"_s);
        at.card->addToFoot(count);
        QVERIFY(at.show());
        QVERIFY(count->isVisible());
        QVERIFY(count->mapTo(&at.window, QPoint()).y() >= at.list->mapTo(&at.window, QPoint(0, at.list->height())).y());
        at.list->clearFocus();
        const QImage without = at.card->grab().toImage();
        at.list->setFocus();
        QVERIFY(at.card->grab().toImage() != without);
    }
};

static const RegisteredTest<TestKEmptyState, QApplication> registeredKEmptyState;
#include "TestKEmptyState.moc"
