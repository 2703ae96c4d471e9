// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"
#include "host/desk/UndoOffer.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/PersonParts.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace Qt::StringLiterals;

// A deletion is taken back where it was made.
class TestUndoOffer : public QObject
{
    Q_OBJECT

    HostTestOffice m_office;
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;

    UndoOffer &offer() const { return *m_window->findChild<UndoOffer *>(); }
    QString value(const QString &statement) { return m_office.database.value(statement); }
    int addPerson(const QString &name)
    {
        CTblPersons person;
        person.AddNew();
        person.m_iCode = CTblPersons::nextCode();
        person.m_sName = name;
        person.Update(true);
        return person.m_iID;
    }
    static void remove(int key)
    {
        CTblPersons asked;
        if (!asked.IsRecordExist(u"iID"_s, key))
            qFatal("the person is gone");
        RowDeleting::run(asked);
    }

private Q_SLOTS:
    void initTestCase()
    {
        PersonParts::enter();
        CrmSubjects::enter();
    }
    void init()
    {
        m_office.fresh();
        m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), nullptr);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void cleanup() { m_window.reset(); }

    void nothingIsOfferedAtFirst() { QVERIFY(!offer().isVisible() && !offer().isOffered()); }

    void theButtonBringsTheRowBackIntoItsList()
    {
        const int key = addPerson(u"رضا"_s);
        addPerson(u"علی"_s);
        GetDBSetting()->AddDialogToTabPage_(new CDlgPersons, 1, 0);
        auto *page = qobject_cast<CDlgPersons *>(m_window->workArea()->currentPage());
        remove(key);
        page->refill();
        QCOMPARE(page->list()->count(), 1);
        QVERIFY(offer().isVisible());
        QVERIFY2(offer().findChild<QLabel *>()->text().contains(u"رضا حذف شد"_s), qPrintable(offer().findChild<QLabel *>()->text()));
        offer().findChild<QPushButton *>()->click();
        QCOMPARE(page->list()->count(), 2);
        QCOMPARE(page->list()->currentKey(), key);
        QVERIFY(!offer().isVisible());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Bin"_s), u"0"_s);
    }

    void theKeyDoesSoOutsideOfTexts()
    {
        const int key = addPerson(u"رضا"_s);
        GetDBSetting()->AddDialogToTabPage_(new CDlgPersons, 1, 0);
        auto *page = qobject_cast<CDlgPersons *>(m_window->workArea()->currentPage());
        remove(key);
        page->refill();
        auto *search = page->findChild<QLineEdit *>();
        search->setFocus();
        QTest::keyClicks(search, u"ab"_s);
        QTest::keyClick(search, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
        page->list()->setFocus();
        QTest::keyClick(page->list(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"1"_s);
    }

    void theNextChangeEndsTheOffer()
    {
        remove(addPerson(u"رضا"_s));
        QVERIFY(offer().isOffered());
        addPerson(u"علی"_s);
        QTRY_VERIFY(!offer().isOffered());
        QVERIFY(!offer().isVisible());
    }

    // A backup that is taken beside, or what another thread notes, is no change by the user.
    void whatIsDoneBesideDoesNotEndIt()
    {
        remove(addPerson(u"رضا"_s));
        const quint64 before = KConnection::changes();
        std::thread beside([] {
            KConnection::forThread().run(KSql("INSERT INTO Properties(sSection,sKey,sValue) VALUES('beside','a','b')"));
            KConnection::closeThreadConnections();
        });
        beside.join();
        QVERIFY(KConnection::changes() > before);
        offer().look();
        QVERIFY(offer().isOffered());
        addPerson(u"علی"_s);
        offer().look();
        QVERIFY(!offer().isOffered());
    }

    void theLastDeletionIsTheOneThatIsOffered()
    {
        remove(addPerson(u"رضا"_s));
        remove(addPerson(u"علی"_s));
        offer().findChild<QPushButton *>()->click();
        QCOMPARE(value(u"SELECT sName2 FROM Persons"_s), u"علی"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Bin"_s), u"1"_s);
    }

    void tabReachesTheButton()
    {
        remove(addPerson(u"رضا"_s));
        QVERIFY(offer().findChild<QPushButton *>()->focusPolicy() & Qt::TabFocus);
    }
};

static const RegisteredTest<TestUndoOffer, QApplication> registeredUndoOffer;
#include "TestUndoOffer.moc"
