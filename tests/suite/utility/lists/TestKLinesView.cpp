// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KLinesView.h"

#include "suite/utility/frame/KDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

class TestKLinesView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void typedChoiceMeansAnEntry_data();
    void typedChoiceMeansAnEntry();
    void enterInTheListOfWhatFitsGoesOn_data();
    void enterInTheListOfWhatFitsGoesOn();
    void unknownChoiceKeepsItsTextAndIsMarked();
    void computedCellFollowsTheLine();
    void numbersAreTakenAsTheyAreTyped_data();
    void numbersAreTakenAsTheyAreTyped();
    void moneySetAsATextKeepsToTheUnitsDecimals_data();
    void moneySetAsATextKeepsToTheUnitsDecimals();
    void emptyLinesAreLeftOut();
    void enterGoesThroughTheCellsIntoANewLine();
    void enterOnAnEmptyLastLineLeavesTheGrid();
    void controlEnterTakesTheEntryFirst();
    void insertAddsAndDeleteRemovesALine();
    void deleteInsideAnEntryIsTheEntrys();
    void lastLineThatIsDeletedLeavesAnEmptyOne();
    void backspaceEmptiesACell();
    void escapeDropsTheEntry();
    void pickedCellAsksForItsWindow_data();
    void pickedCellAsksForItsWindow();
    void readOnlyGridTakesNothing();
    void finishEntryTakesWhatIsTyped();
    void entryLinesHaveTheirColumnsName();

private:
    void type(const QString &text, Qt::Key then = Qt::Key_Return);
    QString shown(int row, int column) const { return m_model->index(row, column).data().toString(); }

    std::unique_ptr<KDialog> m_window;
    KLinesModel *m_model = nullptr;
    KLinesView *m_view = nullptr;
    QLineEdit *m_after = nullptr;
};

namespace {

enum Column {
    Service,
    Person,
    Text,
    Count,
    Price,
    Amount
};

QVector<KLinesModel::Column> lineColumns()
{
    using Kind = KLinesModel::Kind;
    return {
        {u"خدمت"_s, Kind::Choice, 100, 0, {{1, u"10 کارشناسی خودرو"_s}, {2, u"20 انتقال سند"_s}, {3, u"100 کارشناسی موتور"_s}, {4, u"30 انتقال"_s}}},
        {u"شخص"_s, Kind::Pick, 80},
        {u"شرح"_s, Kind::Text, 100, 5},
        {u"تعداد"_s, Kind::Number, 50},
        {u"قیمت"_s, Kind::Money, 80},
        {u"مبلغ"_s, Kind::Computed, 80, 0, {}, [](const KLinesModel::Line &line) { return line.at(Count).number * line.at(Price).number; }},
    };
}

}

void TestKLinesView::init()
{
    m_window = std::make_unique<KDialog>();
    m_model = new KLinesModel(lineColumns(), m_window.get());
    m_model->insertLine(0);
    m_view = new KLinesView(m_model, m_window.get());
    m_view->setAccessibleName(u"ردیف‌ها"_s);
    m_after = new QLineEdit(m_window.get());
    auto *layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_view);
    layout->addWidget(m_after);
    m_window->resize(800, 400);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_view->setFocus();
}

void TestKLinesView::cleanup()
{
    m_window.reset();
}

// Into the cell that is current, as a person types: the first character opens the entry.
void TestKLinesView::type(const QString &text, Qt::Key then)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, c, Qt::NoModifier);
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->hide();
    QTest::keyClick(QApplication::focusWidget(), then);
}

void TestKLinesView::typedChoiceMeansAnEntry_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::newRow("its text") << u"20 انتقال سند"_s << 2;
    QTest::newRow("its text in another spelling") << u" 20 انتقال  سند"_s << 2;
    QTest::newRow("its code") << u"20"_s << 2;
    QTest::newRow("a code that begins another one") << u"10"_s << 1;
    QTest::newRow("its code in Persian digits") << u"۱۰۰"_s << 3;
    QTest::newRow("a part that only it holds") << u"موتور"_s << 3;
    QTest::newRow("a name that another one begins with") << u"انتقال"_s << 4;
    QTest::newRow("a part that two hold") << u"کارشناسی"_s << 0;
    QTest::newRow("nothing of the list") << u"رنگ"_s << 0;
    QTest::newRow("nothing") << QString() << 0;
}

void TestKLinesView::typedChoiceMeansAnEntry()
{
    QFETCH(QString, typed);
    QTEST(m_model->choiceFor(Service, typed).key, "key");
}

void TestKLinesView::enterInTheListOfWhatFitsGoesOn_data()
{
    QTest::addColumn<int>("stepsDown");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::newRow("nothing marked") << 0 << u"موتور"_s << 3;
    QTest::newRow("the first marked") << 1 << u"کارشناسی"_s << 1;
    QTest::newRow("the second marked") << 2 << u"کارشناسی"_s << 3;
}

void TestKLinesView::enterInTheListOfWhatFitsGoesOn()
{
    QFETCH(int, stepsDown);
    QFETCH(QString, typed);
    QFETCH(int, key);
    m_view->goTo(0, Service);
    for (const QChar c : typed)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, c, Qt::NoModifier);
    QTRY_VERIFY(QApplication::activePopupWidget());
    for (int step = 0; step < stepsDown; ++step)
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    // At once: the next key typed ahead belongs to the next cell.
    QCOMPARE(m_view->currentIndex().column(), int(Service) + 1);
    QCOMPARE(m_model->index(0, Service).data(KLinesModel::KeyRole).toInt(), key);
    QVERIFY(!QApplication::activePopupWidget());
}

void TestKLinesView::unknownChoiceKeepsItsTextAndIsMarked()
{
    const QModelIndex cell = m_model->index(0, Service);
    QVERIFY(m_model->setData(cell, u"رنگ"_s));
    QCOMPARE(shown(0, Service), u"رنگ"_s);
    QCOMPARE(cell.data(KLinesModel::KeyRole).toInt(), 0);
    QVERIFY(cell.data(Qt::ForegroundRole).isValid());
    m_model->setData(cell, u"20"_s);
    QVERIFY(!cell.data(Qt::ForegroundRole).isValid());
}

void TestKLinesView::computedCellFollowsTheLine()
{
    const QAbstractItemModelTester tester(m_model);
    QSignalSpy edited(m_model, &KLinesModel::edited);
    m_model->setData(m_model->index(0, Count), 2.5);
    m_model->setData(m_model->index(0, Price), 1000.0);
    QCOMPARE(edited.count(), 2);
    QCOMPARE(shown(0, Amount), u"2,500"_s);
    QCOMPARE(m_model->index(0, Amount).data(KLinesModel::NumberRole).toDouble(), 2500.0);
    QVERIFY(!m_model->setData(m_model->index(0, Amount), 7.0));
    m_model->setData(m_model->index(0, Price), 1000.0);
    QCOMPARE(edited.count(), 2);
}

void TestKLinesView::numbersAreTakenAsTheyAreTyped_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("number");
    QTest::newRow("money in Persian digits") << int(Price) << u"۱۲۵۰۰۰"_s << u"125,000"_s << 125000.0;
    QTest::newRow("count with a fraction") << int(Count) << u"1.5"_s << u"1.5"_s << 1.5;
    QTest::newRow("count above a hundred") << int(Count) << u"250"_s << u"250"_s << 250.0;
    // The window decides what to do, but the entry is never changed into something that was not typed.
    QTest::newRow("count above what the entry line takes")
        << int(Count) << u"12345678901"_s << u"12345678901"_s << 12345678901.0;
    QTest::newRow("money above what the entry line takes")
        << int(Price) << u"2000000000000000"_s << u"2,000,000,000,000,000"_s << 2e15;
    QTest::newRow("money with decimals that the unit does not have")
        << int(Price) << u"2500000.7"_s << u"2,500,000"_s << 2500000.0;
    QTest::newRow("money with a slash") << int(Price) << u"۵۰۰۰/۲۵"_s << u"5,000"_s << 5000.0;
    QTest::newRow("count with too many decimals") << int(Count) << u"1.23456"_s << u"1.2345"_s << 1.2345;
    QTest::newRow("letters are dropped") << int(Price) << u"12x0"_s << u"120"_s << 120.0;
}

void TestKLinesView::numbersAreTakenAsTheyAreTyped()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    m_view->goTo(0, column);
    type(typed);
    QTEST(shown(0, column), "shown");
    QTEST(m_model->line(0).at(column).number, "number");
}

void TestKLinesView::moneySetAsATextKeepsToTheUnitsDecimals_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("no decimals") << 0 << u"1000.50"_s << 1000.0;
    QTest::newRow("two decimals") << 2 << u"۱۰۰۰٫۵۰۷"_s << 1000.5;
    QTest::newRow("in groups") << 0 << u"1,250,000"_s << 1250000.0;
    QTest::newRow("below zero") << 0 << u"-7"_s << -7.0;
}

// As a screen reader sets it.
void TestKLinesView::moneySetAsATextKeepsToTheUnitsDecimals()
{
    QFETCH(int, decimals);
    QFETCH(QString, text);
    setDefaultMoneyDecimals(decimals);
    QVERIFY(m_model->setData(m_model->index(0, Price), text));
    setDefaultMoneyDecimals(0);
    QTEST(m_model->line(0).at(Price).number, "number");
}

void TestKLinesView::emptyLinesAreLeftOut()
{
    m_model->insertLine(1);
    m_model->insertLine(2);
    m_model->setData(m_model->index(2, Text), u"رنگ"_s);
    QVector<int> positions;
    QCOMPARE(m_model->lines(&positions).size(), 1);
    QCOMPARE(positions, QVector<int>{2});
    QVERIFY(m_model->isLineEmpty(0));
}

void TestKLinesView::enterGoesThroughTheCellsIntoANewLine()
{
    m_view->goTo(0, Service);
    type(u"20"_s);
    QCOMPARE(m_view->currentIndex(), m_model->index(0, Person));
    type({});
    type(u"فوری"_s);
    type(u"2"_s);
    QCOMPARE(m_view->currentIndex(), m_model->index(0, Price));
    type(u"500"_s);
    QCOMPARE(m_model->rowCount(), 2);
    QCOMPARE(m_view->currentIndex(), m_model->index(1, Service));
    QCOMPARE(shown(0, Service), u"20 انتقال سند"_s);
    QCOMPARE(shown(0, Amount), u"1,000"_s);
    QVERIFY(m_view->hasFocus());
}

void TestKLinesView::enterOnAnEmptyLastLineLeavesTheGrid()
{
    m_model->setData(m_model->index(0, Text), u"رنگ"_s);
    m_view->goTo(0, Price);
    type(u"5"_s);
    QCOMPARE(m_view->currentIndex().row(), 1);
    QTest::keyClick(m_view, Qt::Key_Return);
    QVERIFY(m_after->hasFocus());
    QCOMPARE(m_model->rowCount(), 2);
}

void TestKLinesView::controlEnterTakesTheEntryFirst()
{
    m_view->goTo(0, Price);
    QTest::keyClick(m_view, Qt::Key_7);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(shown(0, Price), u"7"_s);
    QCOMPARE(m_model->rowCount(), 1);
}

void TestKLinesView::insertAddsAndDeleteRemovesALine()
{
    m_model->setData(m_model->index(0, Text), u"یک"_s);
    m_view->goTo(0, Text);
    QTest::keyClick(m_view, Qt::Key_Insert);
    QCOMPARE(m_model->rowCount(), 2);
    QCOMPARE(m_view->currentIndex(), m_model->index(1, 0));
    m_view->goTo(0, Text);
    QTest::keyClick(m_view, Qt::Key_Insert);
    QCOMPARE(m_model->rowCount(), 3);
    QVERIFY(m_model->isLineEmpty(1));
    m_view->goTo(0, Text);
    QTest::keyClick(m_view, Qt::Key_Delete);
    QCOMPARE(m_model->rowCount(), 2);
    QVERIFY(m_model->isLineEmpty(0));
    QCOMPARE(m_view->currentIndex().row(), 0);
}

void TestKLinesView::deleteInsideAnEntryIsTheEntrys()
{
    m_view->goTo(0, Text);
    QTest::keyClick(m_view, Qt::Key_A);
    auto *edit = qobject_cast<KEdit *>(QApplication::focusWidget());
    QVERIFY(edit);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QCOMPARE(m_model->rowCount(), 1);
    QVERIFY(edit->text().isEmpty());
}

void TestKLinesView::lastLineThatIsDeletedLeavesAnEmptyOne()
{
    m_model->setData(m_model->index(0, Text), u"یک"_s);
    m_view->goTo(0, Text);
    m_view->removeCurrentLine();
    QCOMPARE(m_model->rowCount(), 1);
    QVERIFY(m_model->isLineEmpty(0));
}

void TestKLinesView::backspaceEmptiesACell()
{
    m_model->setCell(0, Person, {u"علی"_s, 0, 7});
    m_view->goTo(0, Person);
    QTest::keyClick(m_view, Qt::Key_Backspace);
    QCOMPARE(m_model->line(0).at(Person).key, 0);
    QVERIFY(shown(0, Person).isEmpty());
    m_model->setData(m_model->index(0, Count), 2.0);
    m_model->setData(m_model->index(0, Price), 2.0);
    m_view->goTo(0, Amount);
    QTest::keyClick(m_view, Qt::Key_Backspace);
    QCOMPARE(shown(0, Amount), u"4"_s);
}

void TestKLinesView::escapeDropsTheEntry()
{
    m_model->setData(m_model->index(0, Text), u"یک"_s);
    m_view->goTo(0, Text);
    QTest::keyClick(m_view, Qt::Key_A);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(shown(0, Text), u"یک"_s);
    QVERIFY(m_window->isVisible());
    QVERIFY(m_view->hasFocus());
}

void TestKLinesView::pickedCellAsksForItsWindow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("asks");
    QTest::newRow("F4") << int(Qt::Key_F4) << true;
    QTest::newRow("F2") << int(Qt::Key_F2) << true;
    QTest::newRow("space") << int(Qt::Key_Space) << true;
    QTest::newRow("a letter") << int(Qt::Key_A) << false;
}

void TestKLinesView::pickedCellAsksForItsWindow()
{
    QFETCH(int, key);
    QFETCH(bool, asks);
    QSignalSpy picks(m_view, &KLinesView::pickRequested);
    m_view->goTo(0, Person);
    QTest::keyClick(m_view, static_cast<Qt::Key>(key));
    QCoreApplication::processEvents();
    QCOMPARE(picks.count(), asks ? 1 : 0);
    if (asks)
        QCOMPARE(picks.first(), (QVariantList{0, int(Person)}));
    picks.clear();
    m_model->setReadOnly(true);
    QTest::keyClick(m_view, static_cast<Qt::Key>(key));
    QCoreApplication::processEvents();
    QCOMPARE(picks.count(), 0);
}

void TestKLinesView::readOnlyGridTakesNothing()
{
    m_model->setData(m_model->index(0, Text), u"یک"_s);
    m_model->setReadOnly(true);
    m_view->goTo(0, Text);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_F4})
        QTest::keyClick(m_view, key);
    QVERIFY(m_view->hasFocus());
    QCOMPARE(m_model->rowCount(), 1);
    QCOMPARE(shown(0, Text), u"یک"_s);
}

void TestKLinesView::finishEntryTakesWhatIsTyped()
{
    m_view->goTo(0, Price);
    QTest::keyClick(m_view, Qt::Key_9);
    QVERIFY(qobject_cast<KEdit *>(QApplication::focusWidget()));
    m_view->finishEntry();
    QCOMPARE(shown(0, Price), u"9"_s);
    m_view->finishEntry();
    QCOMPARE(shown(0, Price), u"9"_s);
}

void TestKLinesView::entryLinesHaveTheirColumnsName()
{
    for (const int column : {int(Service), int(Text), int(Count), int(Price)}) {
        m_view->goTo(0, column);
        QTest::keyClick(m_view, Qt::Key_F2);
        QWidget *editor = QApplication::focusWidget();
        QVERIFY(editor != m_view);
        QCOMPARE(editor->accessibleName(), lineColumns().at(column).title);
        QTest::keyClick(editor, Qt::Key_Escape);
    }
}

static const RegisteredTest<TestKLinesView, QApplication> registeredKLinesView;
#include "TestKLinesView.moc"
