// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/look/HostColors.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

// The window that sets two desks' changes against each other.
class TestCDlgRowConflict : public QObject
{
    Q_OBJECT

    using Answer = CDlgRowConflict::Answer;

    std::unique_ptr<TestOffice> m_office;
    CTblItems m_record;

    Answer asked(const QList<RowConflict> &conflicts, const std::function<void(QWidget &)> &work)
    {
        bool came = false;
        QTimer::singleShot(50, [&] {
            if (QWidget *window = QApplication::activeModalWidget()) {
                came = true;
                work(*window);
                window->close();
            }
        });
        const Answer answer = CDlgRowConflict::ask(RowChanged(RowChanged::Kind::Conflict, m_record, conflicts), m_record, {}, {}, nullptr);
        if (!came)
            QTest::qFail("the window did not come up", __FILE__, __LINE__);
        return answer;
    }

    static RowConflict conflict(const QString &theirs = u"او"_s) { return {u"sName"_s, u"پیش"_s, theirs, u"من"_s}; }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void eachButtonIsItsAnswer_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("answer");
        QTest::newRow("theirs") << u"تغییر او بماند"_s << int(Answer::TakeTheirs);
        QTest::newRow("mine") << u"تغییر من بماند"_s << int(Answer::TakeMine);
        QTest::newRow("back") << u"بازگشت به پنجره"_s << int(Answer::GoBack);
        QTest::newRow("closed") << QString() << int(Answer::GoBack);
    }

    void eachButtonIsItsAnswer()
    {
        QFETCH(QString, button);
        QFETCH(int, answer);
        QCOMPARE(int(asked({conflict()}, [&](QWidget &window) {
                     if (!button.isEmpty())
                         named<QPushButton>(window, button)->click();
                 })),
                 answer);
    }

    void tabMeetsTheTableBeforeTheAnswers()
    {
        asked({conflict()}, [](QWidget &window) {
            QStringList met;
            for (QWidget *widget = window.nextInFocusChain(); widget != &window; widget = widget->nextInFocusChain()) {
                if (widget->isVisible() && !widget->focusProxy() && (widget->focusPolicy() & Qt::TabFocus))
                    met.append(widget->accessibleName());
            }
            QCOMPARE(met, (QStringList{window.windowTitle(), u"تغییر او بماند"_s, u"تغییر من بماند"_s, u"بازگشت به پنجره"_s}));
        });
    }

    // Whoever presses Enter without reading loses nothing.
    void enterAndEscapeGoBack_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("Escape") << int(Qt::Key_Escape);
    }

    void enterAndEscapeGoBack()
    {
        QFETCH(int, key);
        bool closed = false;
        QCOMPARE(asked({conflict()}, [&](QWidget &window) {
                     QCOMPARE(window.focusWidget(), named<QPushButton>(window, u"بازگشت به پنجره"_s));
                     QTest::keyClick(window.focusWidget(), Qt::Key(key));
                     closed = !window.isVisible();
                 }),
                 Answer::GoBack);
        QVERIFY(closed);
    }

    void threeValuesStandBesideTheLabel()
    {
        asked({conflict({})}, [](QWidget &window) {
            for (const QString &cell : {u"هنگام باز شدن: پیش"_s, u"تغییر او: (خالی)"_s, u"تغییر شما: من"_s}) {
                bool found = false;
                for (const QLabel *label : window.findChildren<QLabel *>())
                    found = found || label->accessibleName().endsWith(cell);
                QVERIFY2(found, qPrintable(cell));
            }
        });
    }

    void longTextsWrapAndManyFieldsScroll()
    {
        QList<RowConflict> many(30, conflict(QString(u"متنی که در یک سطر جا نمی‌شود "_s).repeated(12)));
        asked(many, [](QWidget &window) {
            QCoreApplication::processEvents();
            QVERIFY(window.width() <= 1366 && window.height() <= 768);
            auto *scroll = window.findChild<QScrollArea *>();
            QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
            QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
            QTest::keyClick(scroll, Qt::Key_PageDown);
            QVERIFY(scroll->verticalScrollBar()->value() > 0);
            for (const QString &button : {u"تغییر او بماند"_s, u"تغییر من بماند"_s, u"بازگشت به پنجره"_s}) {
                const auto *shown = named<QPushButton>(window, button);
                QVERIFY(window.rect().contains(QRect(shown->mapTo(&window, QPoint()), shown->size())));
            }
        });
    }

    // Each row has its ground and a line below it, however many lines its texts take.
    void rowsAreThoseOfAList()
    {
        using Role = HostColors::Role;
        const QString wrapped = QString(u"متنی که در یک سطر جا نمی‌شود "_s).repeated(12);
        asked({conflict(wrapped), conflict(), conflict()}, [](QWidget &window) {
            QCoreApplication::processEvents();
            const QWidget *table = window.findChild<QScrollArea *>()->widget();
            const QImage shown = window.findChild<QScrollArea *>()->widget()->grab().toImage();
            const auto at = [&shown](int y) { return shown.pixelColor(2, y); };
            QCOMPARE(at(2), HostColors::of(Role::Header));
            int lines = 0;
            for (int y = 0; y < table->height(); ++y)
                lines += at(y) == HostColors::of(Role::Line);
            QCOMPARE(lines, 4);
            const QColor below = at(table->height() - 2);
            QCOMPARE(below, HostColors::of(Role::Surface));
        });
    }

    void columnsThatOnlySeemChangedAreLeftOut()
    {
        CDlgRowConflict::answerNext(Answer::GoBack);
        const RowConflict unseen{u"sTitle"_s, u"یک"_s, u"یک"_s, u"یک"_s};
        CDlgRowConflict::ask(
            RowChanged(RowChanged::Kind::Conflict, m_record, {unseen, conflict()}), m_record,
            [](const QString &column) { return column; }, {}, nullptr);
        QCOMPARE(CDlgRowConflict::takeShown(), QStringList{u"sName: پیش | او | من"_s});
    }
};

static const RegisteredTest<TestCDlgRowConflict, KApplication> registeredRowConflict;

#include "TestCDlgRowConflict.moc"
