// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KFilterForm.h"
#include "suite/accounting/lists/KListFilterBox.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString boxSection = u"Boxes"_s;

QList<KListFilter> twoLines()
{
    using namespace FilterClauses;
    using K = KListFilter::Kind;
    return {
        {.key = u"name"_s, .label = u"نام :"_s, .kind = K::Text, .place = {0, 0}, .clause = part("sName")},
        {.key = u"state"_s, .label = u"وضعيت بايگاني :"_s, .kind = K::Choice, .place = {0, 2}, .clause = number(" AND i="), .initial = 1, .choices = [] { return QList<KListFilter::Choice>{{u"همه"_s, 0}, {u"بایگانی نشده"_s, 1}, {u"بایگانی شده"_s, 2}}; }},
        {.key = u"from"_s, .label = u"تاريخ عقد از :"_s, .kind = K::Date, .place = {1, 0}, .clause = from(" AND d>=")},
        {.key = u"to"_s, .label = u"تا :"_s, .kind = K::Date, .place = {1, 2}, .clause = upTo(" AND d<"), .accessibleName = u"تاريخ عقد تا :"_s},
        {.key = u"amount"_s, .label = u"مبلغ از :"_s, .kind = K::Amount, .place = {1, 4}, .clause = amount(" AND a>=")},
        {.key = u"inactive"_s, .label = u"نمايش غير فعال ها"_s, .kind = K::Flag, .place = {1, 6, 2}},
    };
}

struct Box
{
    QWidget page;
    KListFilterBox *box;

    explicit Box(int width, QList<KListFilter> filters = twoLines())
    {
        box = new KListFilterBox(
            {}, std::move(filters), [](QGridLayout *) {}, &page);
        auto *layout = new QVBoxLayout(&page);
        layout->addWidget(box);
        layout->addStretch(1);
        page.resize(width, 500);
        page.show();
        box->readFolding(boxSection);
        box->takeConditions();
    }
    QStringList chips() const
    {
        QStringList texts;
        for (const KChip *chip : box->findChildren<KChip *>()) {
            if (chip->isVisible())
                texts << chip->text();
        }
        return texts;
    }
    QToolButton *button() const
    {
        for (QToolButton *button : box->findChildren<QToolButton *>()) {
            if (button->accessibleName() == u"باز و بسته کردن فيلتر"_s)
                return button;
        }
        return nullptr;
    }
};

}

class TestKListFilterBox : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

private Q_SLOTS:
    void initTestCase() { setSettingsFile(m_folder.filePath(u"settings.ini"_s)); }
    void cleanupTestCase() { setSettingsFile({}); }
    void init()
    {
        WriteSetting(boxSection, u"iFilterFolded"_s, -1);
        g_pDlgWarning->answerAll(true);
        g_pDlgWarning->takeShown();
    }

    void aNarrowPageStartsFolded_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("folded");
        QTest::newRow("wide") << LookSizes::scaled(LookSizes::wide) << false;
        QTest::newRow("narrow") << LookSizes::scaled(LookSizes::wide) - 1 << true;
    }

    void aNarrowPageStartsFolded()
    {
        QFETCH(int, width);
        QFETCH(bool, folded);
        Box at(width);
        QCOMPARE(at.box->isFolded(), folded);
        QCOMPARE(at.box->filters().control(u"name")->isVisible(), !folded);
    }

    void theWidthDecidesUntilTheUserDoes()
    {
        Box at(LookSizes::scaled(900));
        QVERIFY(at.box->isFolded());
        at.page.resize(LookSizes::scaled(1300), 500);
        QVERIFY(!at.box->isFolded());
        at.button()->click();
        QVERIFY(at.box->isFolded());
        at.page.resize(LookSizes::scaled(1400), 500);
        QVERIFY(at.box->isFolded());
        // And the next time.
        Box again(LookSizes::scaled(1400));
        QVERIFY(again.box->isFolded());
        QTest::keyClick(again.button(), Qt::Key_Space);
        QVERIFY(!again.box->isFolded());
        Box narrow(LookSizes::scaled(900));
        QVERIFY(!narrow.box->isFolded());
    }

    void aBoxOfOneLineIsNotFolded()
    {
        Box at(LookSizes::scaled(500), twoLines().mid(0, 2));
        QVERIFY(!at.box->isFoldable());
        QVERIFY(!at.button());
        at.box->toggle();
        QVERIFY(!at.box->isFolded());
    }

    void aFoldedBoxNamesItsConditions()
    {
        Box at(LookSizes::scaled(1100));
        QVERIFY(at.box->isFolded());
        QCOMPARE(at.chips(), QStringList{u"بایگانی نشده"_s});
        KFilterForm &filters = at.box->filters();
        filters.set(u"name", u"پژو"_s);
        filters.set(u"amount", 45e9);
        filters.set(u"inactive", true);
        filters.control<KDateEdit>(u"to")->setText(u"1405/08/01"_s);
        filters.set(u"state", 0);
        at.box->takeConditions();
        QCOMPARE(at.chips(), (QStringList{u"نام : پژو"_s, u"تاريخ عقد تا : 1405/08/01"_s, u"مبلغ از : 45,000,000,000"_s, u"نمايش غير فعال ها"_s}));
        at.box->toggle();
        QVERIFY(at.chips().isEmpty());
    }

    void whatIsChangedWithoutASearchIsNotNamed()
    {
        Box at(LookSizes::scaled(1100));
        at.box->toggle();
        at.box->filters().control<KEdit>(u"name")->setText(u"پژو"_s);
        at.box->toggle();
        QCOMPARE(at.chips(), QStringList{u"بایگانی نشده"_s});
        at.box->filters().set(u"state", 2);
        QCOMPARE(at.chips(), QStringList{u"بایگانی نشده"_s});
        at.box->takeConditions();
        QCOMPARE(at.chips(), (QStringList{u"نام : پژو"_s, u"بایگانی شده"_s}));
    }

    void whatIsFoldedAsksItsConditionsAllTheSame()
    {
        Box at(LookSizes::scaled(1300));
        at.box->filters().set(u"name", u"Xantia"_s);
        const QString open = at.box->filters().condition(1).text();
        at.box->toggle();
        QVERIFY(at.box->isFolded());
        QCOMPARE(at.box->filters().condition(1).text(), open);
        QVERIFY(open.contains(u"Xantia"_s) && open.contains(u"i=1"_s));
    }

    void conditionsWithoutRoomAreCounted()
    {
        Box at(LookSizes::scaled(1100));
        at.page.resize(420, 500);
        KFilterForm &filters = at.box->filters();
        filters.set(u"name", u"نامی که چند کلمه دارد"_s);
        filters.set(u"amount", 45e9);
        filters.set(u"inactive", true);
        at.box->takeConditions();
        QCoreApplication::processEvents();
        const QStringList chips = at.chips();
        QVERIFY(chips.size() >= 1 && chips.size() < 5);
        const QString counted = chips.constLast().startsWith(u'+') ? chips.constLast() : chips.constFirst();
        QCOMPARE(counted, u"+%1"_s.arg(4 - (chips.size() - 1)));
        for (const QWidget *part : at.box->findChildren<QWidget *>()) {
            if (part->isVisible())
                QVERIFY(at.box->rect().contains(QRect(part->mapTo(at.box, QPoint()), part->size())));
        }
    }

    void aFoldedBoxIsALineAndTheOpenOneHoldsItsControls()
    {
        Box at(LookSizes::scaled(1300));
        const int open = at.box->sizeHint().height();
        at.box->toggle();
        QCOMPARE(at.box->sizeHint().height(), LookSizes::scaled(40));
        QVERIFY(open > 2 * at.box->sizeHint().height());
    }

    void anEntryThatIsRefusedOpensTheBox()
    {
        Box at(LookSizes::scaled(1300));
        at.box->filters().control<KDateEdit>(u"from")->setText(u"1405/13/01"_s);
        at.box->toggle();
        QVERIFY(at.box->isFolded());
        QVERIFY(!at.box->checkEntries());
        QVERIFY(!at.box->isFolded());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(at.page.focusWidget(), at.box->filters().control(u"from"));
        // That was not the user's choice.
        QCOMPARE(ReadSetting(boxSection, u"iFilterFolded"_s, -1), 1);
    }

    void aFocusInsideGoesToTheButton()
    {
        Box at(LookSizes::scaled(1300));
        at.box->filters().control(u"name")->setFocus();
        at.box->toggle();
        QCOMPARE(at.page.focusWidget(), at.button());
        QCOMPARE(at.button()->toolTip(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F).toString(QKeySequence::NativeText));
    }

    void labelsStandBesideTheirControlsInPairs()
    {
        Box at(LookSizes::scaled(1300));
        // One below the other: the same edges.
        const auto edges = [&at](const char16_t *key) {
            const QWidget *control = at.box->filters().control(QStringView(key));
            const QPoint left = control->mapTo(at.box, QPoint());
            return std::pair(left.x(), left.x() + control->width());
        };
        QCOMPARE(edges(u"name"), edges(u"from"));
        QCOMPARE(edges(u"state"), edges(u"to"));
    }
};

static const RegisteredTest<TestKListFilterBox, QApplication> registeredKListFilterBox;
#include "TestKListFilterBox.moc"
