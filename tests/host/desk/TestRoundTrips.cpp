// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"
#include "tests/host/desk/DeskAtWork.h"
#include "tests/support/RegisteredTest.h"

// How often a desk waits for an answer of its server, operation by operation: on a slow line that is what each of them takes.
class TestRoundTrips : public QObject
{
    Q_OBJECT

    std::unique_ptr<DeskAtWork> m_desk;
    QStringList m_statements;

private Q_SLOTS:
    void initTestCase()
    {
        m_desk = std::make_unique<DeskAtWork>(60);
        KConnection::setStatementObserver([this, here = QThread::currentThread()](const QString &statement) {
            if (QThread::currentThread() == here)
                m_statements.append(statement);
        });
    }

    void cleanupTestCase()
    {
        KConnection::setStatementObserver({});
        m_desk.reset();
    }

    void cleanup() { QCOMPARE(g_pDlgWarning->takeShown(), QStringList()); }

    void operation_data()
    {
        QTest::addColumn<int>("index");
        const QList<DeskAtWork::Operation> all = DeskAtWork::operations();
        for (int index = 0; index < all.size(); ++index)
            QTest::newRow(qPrintable(all.at(index).name)) << index;
    }

    // The first time as well as any other.
    void operation()
    {
        QFETCH(int, index);
        const DeskAtWork::Operation operation = DeskAtWork::operations().at(index);
        for (const char *time : {"first", "second", "again"}) {
            m_statements.clear();
            const std::optional<DeskAtWork::Cost> cost = operation.run(*m_desk);
            QVERIFY2(cost, qPrintable(g_pDlgWarning->takeShown().join(u'\n')));
            qInfo("%s: %d trips of %d, %d beside it", time, cost->trips, operation.most, cost->beside);
            QVERIFY2(cost->trips > 0, "nothing was counted");
            if (cost->trips > operation.most)
                QFAIL(qPrintable(u"%1 trips, %2 allowed\n    %3"_s.arg(cost->trips).arg(operation.most).arg(m_statements.join(u"\n    "))));
        }
    }

    // Before its cells are made, as well as afterwards. A dash for nothing takes no room of its own.
    void whatAListSaysOfAllItsRowsIsWhatItsCellsSay()
    {
        QStringList empty;
        for (const DeskAtWork::Operation &operation : DeskAtWork::operations()) {
            if (!operation.name.startsWith("list of "_L1) || !operation.run(*m_desk))
                continue;
            const auto *page = qobject_cast<KListPage *>(m_desk->window()->workArea()->currentPage());
            if (!page)
                continue;
            const KListModel *model = page->list()->listModel();
            const auto said = [model] {
                QStringList all;
                for (int column = 0; column < model->columns().size(); ++column) {
                    all << u"%1: %2"_s.arg(model->columns().at(column).key).arg(qMax(1, model->longestFigure(column).size()));
                    for (const auto &[part, sum] : model->columns().at(column).sums ? model->sums(column) : QList<std::pair<QString, double>>())
                        all << u"%1 %2"_s.arg(part).arg(sum, 0, 'f', 2);
                }
                return all.join(u'\n');
            };
            const QString before = said();
            if (model->rows().isEmpty())
                empty.append(operation.name);
            QCOMPARE(operation.name + u'\n' + before, operation.name + u'\n' + said());
        }
        QCOMPARE(empty, (QStringList{u"list of texts of messages"_s, u"list of bin"_s}));
    }

    // Nothing that was read ahead for one opening is left for the next.
    void whatAnotherDeskChangedIsSeenAtTheNextOpening()
    {
        const QList<DeskAtWork::Operation> all = DeskAtWork::operations();
        const auto cars = std::ranges::find(all, u"list of cars"_s, &DeskAtWork::Operation::name);
        const auto shownTypes = [&] {
            if (!cars->run(*m_desk))
                return QStringList();
            const auto *page = qobject_cast<KListPage *>(m_desk->window()->workArea()->currentPage());
            QStringList types;
            for (int row = 0; row < page->list()->model()->rowCount(); ++row)
                types.append(page->list()->model()->index(row, page->list()->columnOf(u"type")).data().toString());
            return types;
        };
        const QString before = shownTypes().value(0);
        QVERIFY(!before.isEmpty());
        m_desk->database().run(u"UPDATE CarBrands SET sName='نام تازه' WHERE sName='%1'"_s.arg(before));
        QCOMPARE(shownTypes().value(0), u"نام تازه"_s);
        m_desk->database().run(u"UPDATE CarBrands SET sName='%1' WHERE sName='نام تازه'"_s.arg(before));
        QCOMPARE(shownTypes().value(0), before);
    }
};

static const RegisteredTest<TestRoundTrips, KApplication> registeredRoundTrips;

#include "TestRoundTrips.moc"
