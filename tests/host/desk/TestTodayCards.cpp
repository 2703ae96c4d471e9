// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/BackupCard.h"
#include "host/today/FirstSteps.h"
#include "host/today/StartPage.h"
#include "host/today/TodayBoard.h"
#include "host/today/TodayCardView.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookSizes.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// The cards of the first page and the columns that they stand in.
class TestTodayCards : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyCardIsOneLine();
    void cardSaysHowFarItLooked();
    void columnsEndWithTheTallest();
    void lastBackupStandsBesideTheStepsToo();

private:
    static TodayContent content(int lines)
    {
        TodayContent content;
        content.count = lines;
        content.extent = u"شش ماه گذشته"_s;
        for (int line = 0; line < lines; ++line)
            content.lines.append({.name = u"سطر %1"_s.arg(line)});
        return content;
    }
    static bool says(const QWidget &card, const QString &words)
    {
        const QList<ElidedLabel *> labels = card.findChildren<ElidedLabel *>();
        return std::any_of(labels.cbegin(), labels.cend(), [&](const ElidedLabel *label) { return !label->isHidden() && label->text() == words; });
    }

    const TodayCard m_card{.id = u"one"_s, .title = u"عنوان"_s, .emptyText = u"چیزی نیست."_s};
};

void TestTodayCards::emptyCardIsOneLine()
{
    TodayCardView card(m_card);
    card.show(content(1), {});
    const int withOne = card.sizeHint().height();
    card.show(content(0), {});
    QVERIFY(says(card, m_card.emptyText));
    QVERIFY2(card.sizeHint().height() <= withOne - LookSizes::scaled(32), qPrintable(QString::number(card.sizeHint().height())));
}

void TestTodayCards::cardSaysHowFarItLooked()
{
    TodayCardView card(m_card);
    card.show(content(2), {});
    QVERIFY(says(card, u"شش ماه گذشته"_s));
    QVERIFY(!says(card, m_card.emptyText));
}

void TestTodayCards::columnsEndWithTheTallest()
{
    QWidget page;
    auto *board = new TodayBoard(&page);
    QList<TodayCardView *> cards;
    for (const int lines : {5, 1, 2}) {
        cards.append(new TodayCardView(m_card, &page));
        cards.constLast()->show(content(lines), {});
        board->addCard(cards.constLast(), int(cards.size()) - 1, 0);
    }
    page.resize(LookSizes::scaled(1400), LookSizes::scaled(1200));
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const int end = cards.at(0)->geometry().bottom();
    QCOMPARE(cards.at(0)->height(), cards.at(0)->sizeHint().height());
    QCOMPARE(cards.at(1)->geometry().bottom(), end);
    QCOMPARE(cards.at(2)->geometry().bottom(), end);
}

void TestTodayCards::lastBackupStandsBesideTheStepsToo()
{
    StartPage page({});
    auto *steps = page.findChild<FirstSteps *>();
    auto *beside = steps->findChild<BackupCard *>();
    QVERIFY(beside);
    QVERIFY(beside->isHidden());
    QSignalSpy asked(&page, &StartPage::backupAsked);
    page.setBackups({.kind = BackupStanding::Kind::None});
    for (BackupCard *card : page.findChildren<BackupCard *>()) {
        QVERIFY(!card->isHidden());
        QVERIFY(says(*card, u"هنوز گرفته نشده است"_s));
        card->findChild<QPushButton *>()->click();
    }
    QCOMPARE(asked.size(), 2);
}

static const RegisteredTest<TestTodayCards, QApplication> registeredTodayCards;
#include "TestTodayCards.moc"
