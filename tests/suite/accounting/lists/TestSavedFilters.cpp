// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/SavedFilterMenu.h"

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/lists/CDlgSavedFilters.h"
#include "suite/accounting/lists/CDlgSaveFilter.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/lists/SavedFilterText.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

using Kind = KListFilter::Kind;

class ListWithFilters final : public KListPage
{
public:
    ListWithFilters()
        : KListPage(u"نمونه"_s, u"InputParameters"_s, u"WithFilters"_s)
    {
        build();
    }

protected:
    QList<KListColumn> columnTable() const override
    {
        return {KListColumn::rowNumber(), {.key = u"name"_s, .title = u"نام"_s, .column = u"sName"_s}};
    }
    QList<KListFilter> filterTable() const override
    {
        using namespace FilterClauses;
        return {{.key = u"name"_s, .label = u"نام :"_s, .kind = Kind::Text, .place = {0, 0}, .clause = part("sName")},
                {.key = u"code"_s, .label = u"کد :"_s, .kind = Kind::Number, .place = {0, 2}, .clause = number(" AND iStatus=")},
                {.key = u"always"_s, .clause = always(" AND iType=7")}};
    }
    std::vector<KListCommand> commands() override { return {}; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<CTblItems>(); }
    void activated(int) override { }
};

const QString kept = u"{\"code\":0,\"name\":\"رضا\"}"_s;

}

// Filters that users keep under a name.
class TestSavedFilters : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString stored() const
    {
        return m_office->database.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',sList,sName,iUserID,sFilter) ORDER BY iID SEPARATOR ';') FROM SavedFilters"_s);
    }
    void keep(const QString &name, int user, const QString &filter = kept) const
    {
        m_office->database.run(u"INSERT INTO SavedFilters(sList,sName,iUserID,sFilter) VALUES('WithFilters','%1',%2,'%3')"_s.arg(name, QString::number(user), filter));
    }
    static QStringList menuOf(const ListWithFilters &page)
    {
        page.savedFilters()->open();
        QStringList texts;
        for (const QAction *action : page.savedFilters()->menuOfFilters()->actions())
            texts << action->text();
        page.savedFilters()->menuOfFilters()->close();
        return texts;
    }
    static CTblSavedFilters::Entry entryNamed(const QString &name)
    {
        for (const CTblSavedFilters::Entry &entry : CTblSavedFilters::entries(u"WithFilters"_s, GetDBSetting()->GetUserID())) {
            if (entry.name == name)
                return entry;
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        setSettingsFile({});
        m_office.reset();
    }
    void init()
    {
        GetDBSetting()->Login(m_office->admin);
        m_office->database.run(u"DELETE FROM Items"_s);
        m_office->database.run(u"DELETE FROM SavedFilters"_s);
        m_office->database.run(u"DELETE FROM Changes"_s);
        m_office->database.run(u"INSERT INTO Items(iType,iStatus,sName) VALUES(7,1,'رضا'),(7,2,'مریم'),(7,3,'رضا')"_s);
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->takeShown();
    }

    void valuesComeBackAsTheyWereKept_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("person") << Kind::Person << QVariant(17);
        QTest::newRow("choice") << Kind::Choice << QVariant(2);
        QTest::newRow("number") << Kind::Number << QVariant(1405);
        QTest::newRow("amount") << Kind::Amount << QVariant(1234567890.5);
        QTest::newRow("text") << Kind::Text << QVariant(u"پژو \"206\" \\ %"_s);
        QTest::newRow("flag") << Kind::Flag << QVariant(true);
        QTest::newRow("date") << Kind::Date << QVariant(QDate(2026, 11, 22).startOfDay(Qt::UTC));
        QTest::newRow("no date") << Kind::Date << QVariant(QDateTime());
        QTest::newRow("date without a box") << Kind::PlainDate << QVariant(QDate(2026, 3, 21).startOfDay(Qt::UTC));
    }

    void valuesComeBackAsTheyWereKept()
    {
        QFETCH(Kind, kind);
        QFETCH(QVariant, value);
        const QList<KListFilter> filters{{.key = u"one"_s, .kind = kind}, {.key = u"other"_s, .kind = Kind::Text}};
        const SavedFilterText::Read read = SavedFilterText::read(filters, SavedFilterText::of(filters, {{u"one"_s, value}}));
        QVERIFY(!read.isPartly);
        QCOMPARE(read.values.keys(), QStringList{u"one"_s});
        QCOMPARE(read.values.value(u"one"_s), value);
    }

    void aFilterIsKeptAndAskedForAgain()
    {
        ListWithFilters page;
        page.show();
        page.filters().set(u"name", u"رضا"_s);
        CTblSavedFilters::Entry entry;
        entry.filter = SavedFilterText::of(page.filters().filters(), page.filters().enteredValues());
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, entry, &page);
        dialog.show();
        dialog.name()->setText(u"  رضاها "_s);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(stored(), u"WithFilters/رضاها/%1/%2"_s.arg(m_office->admin).arg(kept));
        page.filters().reset();
        page.filters().set(u"code", 2);
        page.refill();
        page.bar()->quickFilter()->setText(u"مریم"_s);
        QCOMPARE(menuOf(page).constFirst(), u"رضاها"_s);
        page.savedFilters()->menuOfFilters()->actions().constFirst()->trigger();
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.filters().value(u"code").toInt(), 0);
        QCOMPARE(page.bar()->quickFilter()->text(), QString());
        QCOMPARE(m_office->database.value(u"SELECT COUNT(*) FROM Changes WHERE sTable='SavedFilters'"_s).toInt() > 0, true);
    }

    void ownOnesStandBeforeSharedOnesAndOthersAreNotThere()
    {
        keep(u"مشترک"_s, CTblSavedFilters::shared);
        keep(u"خودم"_s, m_office->admin);
        keep(u"دیگری"_s, m_office->clerk);
        const ListWithFilters page;
        QCOMPARE(menuOf(page), (QStringList{u"خودم"_s, u"مشترک (مشترک)"_s, {}, u"ذخیره فیلتر ..."_s, u"فیلترهای ذخیره شده ..."_s}));
    }

    void aFilterOfAnOlderListIsAskedAsFarAsItGoes()
    {
        ListWithFilters page;
        page.show();
        page.takeFilter(u"{\"name\":\"رضا\",\"gone\":5}"_s);
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
        page.takeFilter(u"no filter"_s);
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
    }

    void aNameIsAskedForOnce_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("saved");
        QTest::newRow("none") << u"  "_s << false;
        QTest::newRow("forty letters") << QString(40, u'ب') << true;
    }

    void aNameIsAskedForOnce()
    {
        QFETCH(QString, name);
        QFETCH(bool, saved);
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, {.filter = kept});
        dialog.show();
        dialog.name()->setText(name);
        dialog.accept();
        QCOMPARE(dialog.result() == QDialog::Accepted, saved);
        QCOMPARE(g_pDlgWarning->takeShown().size(), saved ? 0 : 1);
        QCOMPARE(stored().isEmpty(), !saved);
        QCOMPARE(dialog.name()->maxLength(), 40);
    }

    void aNameThatIsThereIsReplacedAfterAQuestion_data()
    {
        QTest::addColumn<bool>("agreed");
        QTest::newRow("yes") << true;
        QTest::newRow("no") << false;
    }

    void aNameThatIsThereIsReplacedAfterAQuestion()
    {
        QFETCH(bool, agreed);
        keep(u"رضاها"_s, m_office->admin, u"{}"_s);
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, {.filter = kept});
        dialog.show();
        dialog.name()->setText(u"رضاها"_s);
        g_pDlgYesNo->answerNext(agreed ? KMessageDialog::Yes : KMessageDialog::No);
        dialog.accept();
        QCOMPARE(dialog.result() == QDialog::Accepted, agreed);
        QCOMPARE(stored(), u"WithFilters/رضاها/%1/%2"_s.arg(m_office->admin).arg(agreed ? kept : u"{}"_s));
    }

    // Filters for all are kept by who may change what the list shows.
    void sharingNeedsTheRight()
    {
        keep(u"همه"_s, CTblSavedFilters::shared);
        KSecurity::setRights(m_office->clerk, u"InputParameters"_s, KSecurity::Access | KSecurity::Read);
        GetDBSetting()->Login(m_office->clerk);
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, {.filter = kept});
        QVERIFY(!dialog.isShared()->isEnabled());
        CDlgSavedFilters window(u"WithFilters"_s, u"InputParameters"_s);
        window.list()->selectRow(0);
        window.rename();
        window.remove();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
        QVERIFY(stored().contains(u"همه"_s));
        // One's own needs none.
        dialog.show();
        dialog.name()->setText(u"من"_s);
        dialog.accept();
        QVERIFY(stored().contains(u"من/%1"_s.arg(m_office->clerk)));
        // A right that is gone while the window is open.
        GetDBSetting()->Login(m_office->admin);
        CDlgSaveFilter late(u"WithFilters"_s, u"InputParameters"_s, {.filter = kept});
        late.isShared()->setChecked(true);
        late.name()->setText(u"دیر"_s);
        GetDBSetting()->Login(m_office->clerk);
        late.show();
        late.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(!stored().contains(u"دیر"_s));
    }

    void aFilterIsRenamedAndDeleted()
    {
        keep(u"یک"_s, m_office->admin);
        keep(u"دو"_s, m_office->admin);
        CDlgSavedFilters window(u"WithFilters"_s, u"InputParameters"_s);
        window.show();
        QCOMPARE(window.list()->count(), 2);
        const CTblSavedFilters::Entry entry = entryNamed(u"یک"_s);
        CDlgSaveFilter taken(u"WithFilters"_s, u"InputParameters"_s, entry);
        taken.show();
        taken.name()->setText(u"دو"_s);
        taken.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(taken.isVisible());
        taken.name()->setText(u"سه"_s);
        taken.accept();
        QVERIFY(entryNamed(u"یک"_s).key == 0 && entryNamed(u"سه"_s).filter == kept);
        CDlgSavedFilters again(u"WithFilters"_s, u"InputParameters"_s);
        again.list()->selectKey(entryNamed(u"دو"_s).key);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        again.remove();
        QVERIFY(entryNamed(u"دو"_s).key > 0);
        again.remove();
        QVERIFY(entryNamed(u"دو"_s).key == 0);
        QCOMPARE(again.list()->count(), 1);
        again.remove();
        QCOMPARE(again.list()->count(), 0);
        again.remove();
        QCOMPARE(stored(), QString());
    }

    // --- Two desks ---

    void whatAnotherDeskDidMeanwhileIsTold()
    {
        keep(u"یک"_s, m_office->admin);
        keep(u"دو"_s, m_office->admin);
        // Deleted: nothing is left to delete.
        CDlgSavedFilters window(u"WithFilters"_s, u"InputParameters"_s);
        window.list()->selectKey(entryNamed(u"یک"_s).key);
        m_office->database.run(u"DELETE FROM SavedFilters WHERE sName='یک'"_s);
        window.remove();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(window.list()->count(), 1);
        // Renamed: it is not the one that was asked about.
        window.list()->selectRow(0);
        m_office->database.run(u"UPDATE SavedFilters SET sName='سه' WHERE sName='دو'"_s);
        window.remove();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(entryNamed(u"سه"_s).key > 0);
        // A name that another desk has given meanwhile.
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, entryNamed(u"سه"_s));
        dialog.show();
        keep(u"چهار"_s, m_office->admin);
        dialog.name()->setText(u"چهار"_s);
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(entryNamed(u"سه"_s).key > 0);
    }

    void bothDesksRenameTheSameOne()
    {
        keep(u"یک"_s, m_office->admin);
        CDlgSaveFilter dialog(u"WithFilters"_s, u"InputParameters"_s, entryNamed(u"یک"_s));
        dialog.show();
        dialog.name()->setText(u"من"_s);
        m_office->database.run(u"UPDATE SavedFilters SET sName='او' WHERE sName='یک'"_s);
        CDlgRowConflict::takeShown();
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
        dialog.accept();
        QCOMPARE(CDlgRowConflict::takeShown().size(), 1);
        QVERIFY(entryNamed(u"من"_s).key > 0 && entryNamed(u"او"_s).key == 0);
    }

    void aClosedDatabaseKeepsNoFilter()
    {
        GetDBSetting()->SetClosedDB(true);
        QVERIFY(!CDlgSaveFilter::mayKeep(u"InputParameters"_s, {}, nullptr));
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
};

static const RegisteredTest<TestSavedFilters, QApplication> registeredSavedFilters;
#include "TestSavedFilters.moc"
