// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLook.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/records/CTblTemp.h"
#include "tests/look/GrownOffice.h"
#include "tests/look/LookOffice.h"
#include "tests/look/WindowTable.h"
#include "tests/support/RegisteredTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutex>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <iterator>
#include <memory>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int copies = 100;
constexpr qint64 rowsOfALargeTable = 1000;
constexpr qint64 readPerReturned = 10;
constexpr int shownRows = 50;
// Read without being asked why, whatever is returned.
constexpr qint64 readForNothing = 100;

// Statements that read much for what they return, by what begins or marks them, and why they may.
struct Allowed
{
    const char *mark;
    const char *reason;
};

constexpr Allowed allowed[] = {
    {"SELECT COUNT(*) FROM (SELECT 1 FROM ", "counts the rows of a list; a thread does, beyond a few thousand"},
    {" FROM AccountTotals WHERE ", "the kept sums: a row for each account and month"},
    {"COUNT(*) OVER() found FROM ", "a card says how many are due, which a key finds"},
    {"LEFT JOIN Thumbnails t", "looks once for pictures without a small one, on a thread beside the work"},
    {"SUM(w.demands)", "a chart of all demands and of the cars on the lot"},
    {" RLIKE ", "what was typed may stand anywhere in a text"},
};

// One text for all statements that differ in their values alone.
QString shapeOf(const QString &statement)
{
    static const QRegularExpression text(u"'(?:[^'\\\\]|\\\\.|'')*'"_s);
    static const QRegularExpression number(u"(?<![A-Za-z_0-9])-?\\d+(\\.\\d+)?(e[+-]?\\d+)?"_s);
    static const QRegularExpression list(u"\\(\\?(,\\s*\\?)+\\)"_s);
    QString shape = statement;
    shape.replace(text, u"?"_s).replace(number, u"?"_s).replace(list, u"(?)"_s);
    return shape.simplified();
}

// The tables by the names that a statement calls them.
QHash<QString, QString> tablesOf(const QString &statement)
{
    static const QRegularExpression named(u"(?:FROM|JOIN|,)\\s*\\(?`?([A-Za-z]\\w*)`?(?:\\s+(?:AS\\s+)?`?([A-Za-z]\\w*)`?)?"_s, QRegularExpression::CaseInsensitiveOption);
    QHash<QString, QString> tables;
    for (const QRegularExpressionMatch &match : named.globalMatch(statement)) {
        tables.insert(match.captured(1).toLower(), match.captured(1));
        if (!match.captured(2).isEmpty())
            tables.insert(match.captured(2).toLower(), match.captured(1));
    }
    return tables;
}

// What ANALYZE says was read from each table: rows of a reading times how often it was made.
void addReads(const QJsonValue &node, QHash<QString, double> &reads)
{
    if (node.isArray()) {
        for (const QJsonValue &part : node.toArray())
            addReads(part, reads);
        return;
    }
    const QJsonObject object = node.toObject();
    const QString table = object.value(u"table_name"_s).toString();
    if (!table.isEmpty() && !table.startsWith(u'<') && object.contains(u"r_rows"_s))
        reads[table.toLower()] += object.value(u"r_rows"_s).toDouble() * object.value(u"r_loops"_s).toDouble(1);
    for (const QJsonValue &part : object)
        addReads(part, reads);
}

}

// Each statement that reads, of any window of the program, in an office of many thousand rows: none may read much more than it returns.
class TestStatements : public QObject
{
    Q_OBJECT

    std::unique_ptr<LookOffice> m_office;
    QMutex m_mutex;
    QHash<QString, QString> m_statements; // the last of each shape
    QHash<QString, QString> m_windows;    // which window asked that
    QString m_window;
    QHash<QString, qint64> m_sizes; // rows of the tables, in small letters

    void observe()
    {
        KConnection::setStatementObserver([this](const QString &statement) {
            if (QThread::currentThread() == qApp->thread() && m_office->isAsking())
                return;
            // What locks rows would find others when it is asked once more.
            if ((!statement.startsWith(u"SELECT"_s) && !statement.startsWith(u"(SELECT"_s)) || statement.contains(u" FOR UPDATE"_s))
                return;
            const QMutexLocker lock(&m_mutex);
            const QString shape = shapeOf(statement);
            m_statements.insert(shape, statement);
            m_windows.insert(shape, m_window);
        });
    }

    static KConnection::Result run(const QString &statement) { return KConnection::forThread().run(statement.toUtf8()); }

    static qint64 returnedBy(const QString &statement)
    {
        const KConnection::Result rows = run(statement);
        return rows ? qint64(mysql_num_rows(rows.get())) : 0;
    }

    static QHash<QString, double> readsOf(const QString &statement)
    {
        const KConnection::Result rows = run(u"ANALYZE FORMAT=JSON "_s + statement);
        const MYSQL_ROW row = mysql_fetch_row(rows.get());
        QHash<QString, double> reads;
        addReads(QJsonDocument::fromJson(row[0]).object(), reads);
        return reads;
    }

    // Empty for one that reads little.
    QString faultOf(const QString &statement)
    {
        const QHash<QString, QString> tables = tablesOf(statement);
        const QHash<QString, double> reads = readsOf(statement);
        const qint64 most = std::max(readForNothing, readPerReturned * returnedBy(statement));
        QStringList faults;
        for (auto read = reads.cbegin(); read != reads.cend(); ++read) {
            const QString table = tables.value(read.key(), read.key());
            if (qint64(read.value()) > most && m_sizes.value(table.toLower(), rowsOfALargeTable + 1) > rowsOfALargeTable)
                faults.append(u"%1 of %2, of which %3 are allowed"_s.arg(qint64(read.value())).arg(table).arg(most));
        }
        return faults.join(u"; "_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        HostLook::apply(*qApp);
        m_office = std::make_unique<LookOffice>();
        GrownOffice::grow(copies);
        // As the program does beside the work when so many documents are new; it would do so in the midst of the test.
        TotalsFolding::fold();
        CTblTemp tables;
        tables.Open(true, false, true);
        for (tables.ExecuteQuery("SELECT TABLE_NAME FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE() AND TABLE_TYPE='BASE TABLE'"); tables.HasResultRow();
             tables.MoveNextResult()) {
            const QString table = tables.GetTextFieldValue(0);
            m_sizes.insert(table.toLower(), m_office->text(u"SELECT COUNT(*) FROM `%1`"_s.arg(table)).toLongLong());
        }
        for (const char *large : {"automobilcontracts", "automobilinformations", "automobildemands", "automobilpayments", "persons", "documents", "docs", "receipts", "searchkeys", "changes"})
            QVERIFY2(m_sizes.value(QLatin1String(large)) > rowsOfALargeTable, large);
        observe();
        for (const WindowTable::Entry &entry : WindowTable::all(*m_office)) {
            m_window = QLatin1String(entry.name);
            // The search reads at most so many keys of its rarest word, and its windows wait for the one car that the small office has.
            if (m_window.startsWith(u"search"_s))
                continue;
            // A list once more with few rows, so that an order without a key is not mistaken for one that reads what it shows.
            entry.show([](QWidget &window, const QString &) {
                auto *page = qobject_cast<KListPage *>(&window);
                if (!page)
                    page = window.findChild<KListPage *>();
                if (page && page->rowLimit() > shownRows) {
                    page->setRowLimit(shownRows);
                    page->refill();
                }
                QCoreApplication::processEvents();
            });
            g_pDlgWarning->takeShown();
        }
        KConnection::setStatementObserver({});
        m_office->clear();
        QVERIFY(m_statements.size() > 200);
    }

    void cleanupTestCase()
    {
        KConnection::setStatementObserver({});
        m_office.reset();
    }

    void noneReadsMuchMoreThanItReturns()
    {
        QStringList faults;
        QSet<QString> used;
        for (auto statement = m_statements.cbegin(); statement != m_statements.cend(); ++statement) {
            const auto *found = std::ranges::find_if(allowed, [&](const Allowed &one) { return statement.value().contains(QLatin1String(one.mark)); });
            QString fault;
            try {
                fault = faultOf(statement.value());
            } catch (const CMySQLException &error) {
                fault = u"cannot be run alone: "_s + error.GetErrorMessage();
            }
            if (fault.isEmpty())
                continue;
            if (found != std::end(allowed))
                used.insert(QLatin1String(found->mark));
            else
                faults.append(u"%1 [%2]\n    %3"_s.arg(fault, m_windows.value(statement.key()), statement.value().left(1500)));
        }
        qInfo("%lld statements, %lld of the %lld allowed ones", qlonglong(m_statements.size()), qlonglong(used.size()), qlonglong(std::size(allowed)));
        faults.sort();
        for (const QString &fault : faults)
            qWarning("%s", qPrintable(fault));
        QCOMPARE(faults.size(), 0);
        // What has become better leaves the list.
        for (const Allowed &one : allowed)
            QVERIFY2(used.contains(QLatin1String(one.mark)), one.mark);
    }
};

static const RegisteredTest<TestStatements, KApplication> registeredStatements;

#include "TestStatements.moc"
