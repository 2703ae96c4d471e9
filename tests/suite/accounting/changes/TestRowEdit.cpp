// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowEdit.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/SettingsEdit.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KChangeLog.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

#include <array>
#include <barrier>
#include <functional>
#include <thread>

using namespace Qt::StringLiterals;

class TestRowEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void codesDrawnAtOnceDiffer();
    void columnsChangedAtOnceAreAllKept();
    void ofTwoAdministratorsOneStays();
    void changeIsKnownByWhoMadeIt();
    void refusedSaveWritesNothingAndCanBeTriedAgain();
    void doubtIsAskedUntilAgreedTo();
    void newRowInPlaceOfOneThatIsGoneKeepsItsOtherColumns();
    void settingsThatOthersChangedStay();
    void closedDatabaseIsRefusedInTheUnit();

private:
    // Runs the work twice at once, each on a connection of its own, and returns what was refused.
    static QStringList atOnce(const std::function<void(int)> &work);
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    TestOffice m_office;
};

void TestRowEdit::init()
{
    GetDBSetting()->Login(m_office.admin);
    GetDBSetting()->SetClosedDB(false);
    m_office.database.run(u"DELETE FROM Services"_s);
    m_office.database.run(u"DELETE FROM Changes"_s);
}

QStringList TestRowEdit::atOnce(const std::function<void(int)> &work)
{
    std::barrier begin(2);
    std::array<QString, 2> refusals;
    const auto desk = [&](int number) {
        begin.arrive_and_wait();
        try {
            work(number);
        } catch (const KAccountingError &error) {
            refusals.at(static_cast<size_t>(number)) = error.userMessage();
        } catch (const std::exception &error) {
            refusals.at(static_cast<size_t>(number)) = QString::fromUtf8(error.what());
        }
        KConnection::closeThreadConnections();
    };
    std::thread first(desk, 0);
    std::thread second(desk, 1);
    first.join();
    second.join();
    QStringList told{refusals[0], refusals[1]};
    told.removeAll(QString());
    return told;
}

// Each desk adds with the next code, as the windows propose it.
void TestRowEdit::codesDrawnAtOnceDiffer()
{
    constexpr int each = 15;
    const QStringList told = atOnce([](int desk) {
        for (int number = 0; number < each; ++number) {
            CTblServices service;
            RowEdit edit(service);
            edit.save([&] { service.m_sName = u"خدمت %1 %2"_s.arg(desk).arg(number); },
                      [&] {
                          service.m_iCode = CTblServices::nextCode();
                          service.settle(0);
                      });
        }
    });
    QCOMPARE(told, QStringList());
    QCOMPARE(value("SELECT CONCAT_WS('/',COUNT(*),COUNT(DISTINCT iCode),MAX(iCode)) FROM Services"), u"30/30/30"_s);
}

void TestRowEdit::columnsChangedAtOnceAreAllKept()
{
    const int id = CTblServices::add(1, u"آغاز"_s);
    for (int round = 1; round <= 10; ++round) {
        const QStringList told = atOnce([&](int desk) {
            CTblServices service;
            service.IsRecordExist(u"iID"_s, id);
            RowEdit edit(service, id);
            edit.remember([] {});
            edit.save(
                [&] {
                    if (desk == 0)
                        service.m_iCode = 100 + round;
                    else
                        service.m_sName = u"نام %1"_s.arg(round);
                },
                [&] { service.settle(id); });
        });
        QCOMPARE(told, QStringList());
        QCOMPARE(value("SELECT CONCAT_WS('/',iCode,sName) FROM Services"), u"%1/نام %2"_s.arg(100 + round).arg(round));
    }
}

void TestRowEdit::ofTwoAdministratorsOneStays()
{
    const int second = CTblUsers::create(u"second"_s, u"x"_s, {}, true);
    for (int round = 0; round < 5; ++round) {
        m_office.database.run(u"UPDATE Users SET iStatus=0"_s);
        const QStringList told = atOnce([&](int desk) { CTblUsers::setActive(desk == 0 ? m_office.admin : second, false); });
        QCOMPARE(told, QStringList{u"برنامه باید دست‌کم یک مدیر فعال داشته باشد."_s});
        QCOMPARE(value("SELECT COUNT(*) FROM Users WHERE bAdmin=1 AND iStatus=0"), u"1"_s);
    }
    m_office.database.run(u"UPDATE Users SET iStatus=0"_s);
    m_office.database.run(u"DELETE FROM Users WHERE sUser='second'"_s);
}

void TestRowEdit::changeIsKnownByWhoMadeIt()
{
    const int id = CTblServices::add(1, u"بیمه"_s);
    const auto added = KChangeLog::last(u"Services"_s, id);
    QVERIFY(added);
    QCOMPARE(added->userID, m_office.admin);
    QCOMPARE(added->kind, KChange::Kind::Added);
    CTblServices::remove(id);
    QCOMPARE(KChangeLog::last(u"Services"_s, id)->kind, KChange::Kind::Deleted);
    CTblServices service;
    RowEdit edit(service, id);
    try {
        edit.save([&] { service.m_sName = u"دیگر"_s; });
        QFAIL("a row that is gone was saved");
    } catch (const RowChanged &changed) {
        QCOMPARE(changed.kind(), RowChanged::Kind::Gone);
        QVERIFY2(changed.userMessage().startsWith(u"کاربر «admin» در "_s), qPrintable(changed.userMessage()));
    }
}

void TestRowEdit::refusedSaveWritesNothingAndCanBeTriedAgain()
{
    CTblServices::add(1, u"بیمه"_s);
    CTblServices service;
    RowEdit edit(service);
    int code = 1;
    const auto save = [&] {
        edit.save(
            [&] {
                service.m_iCode = code;
                service.m_sName = u"کرایه"_s;
            },
            [&] { service.settle(edit.key()); });
    };
    QVERIFY_THROWS_EXCEPTION(FieldRefused, save());
    QVERIFY(edit.isNew() && !service.isEditing());
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"1"_s);
    code = 2;
    save();
    save();
    QVERIFY(!edit.isNew());
    QCOMPARE(value("SELECT GROUP_CONCAT(iCode) FROM Services"), u"1,2"_s);
}

void TestRowEdit::doubtIsAskedUntilAgreedTo()
{
    CTblServices service;
    RowEdit edit(service);
    const auto save = [&] {
        edit.save(
            [&] {
                service.m_iCode = 1;
                service.m_sName = u"کرایه"_s;
            },
            [&] { edit.doubt(u"مطمئن هستید؟"_s, u"iCode"_s); });
    };
    QVERIFY_THROWS_EXCEPTION(FieldDoubted, save());
    edit.agree(u"مطمئن هستید؟"_s);
    edit.forgetAnswers();
    QVERIFY_THROWS_EXCEPTION(FieldDoubted, save());
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"0"_s);
    edit.agree(u"مطمئن هستید؟"_s);
    save();
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"1"_s);
}

void TestRowEdit::newRowInPlaceOfOneThatIsGoneKeepsItsOtherColumns()
{
    const int id = CTblServices::add(7, u"بیمه"_s);
    CTblServices service;
    QVERIFY(service.IsRecordExist(u"iID"_s, id));
    RowEdit edit(service, id);
    const auto write = [&] { service.m_sName = u"کرایه"_s; };
    edit.remember([] {});
    m_office.database.run(u"DELETE FROM Services"_s);
    QVERIFY_THROWS_EXCEPTION(RowChanged, edit.save(write));
    edit.becomeNew();
    edit.save(write);
    QVERIFY(edit.key() != id);
    QCOMPARE(value("SELECT CONCAT_WS('/',iCode,sName) FROM Services"), u"7/کرایه"_s);
}

void TestRowEdit::settingsThatOthersChangedStay()
{
    const QList<SettingsEdit::Setting> settings{{u"Try"_s, u"a"_s, u"A"_s}, {u"Try"_s, u"b"_s, u"B"_s}};
    SettingsEdit first(OfficeSettings::read({u"Try"_s}), settings);
    SettingsEdit second(OfficeSettings::read({u"Try"_s}), settings);
    first.remember([] {});
    second.remember([] {});
    first.save([&] { first.setText(u"Try", u"a", u"1"_s); });
    second.save([&] { second.setText(u"Try", u"b", u"2"_s); });
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT(sKey,sValue) ORDER BY sKey) FROM Properties WHERE sSection='Try'"), u"a1,b2"_s);
    QCOMPARE(KChangeLog::last(u"Properties:Try"_s, 0)->userID, m_office.admin);
    // The first window still holds what it read of the other setting.
    first.save([&] { first.setText(u"Try", u"a", u"3"_s); });
    QCOMPARE(OfficeSettings::read({u"Try"_s}).text(u"Try"_s, u"b"_s, {}), u"2"_s);
    QVERIFY_THROWS_EXCEPTION(RowChanged, second.save([&] { second.setText(u"Try", u"a", u"4"_s); }));
    QCOMPARE(OfficeSettings::read({u"Try"_s}).text(u"Try"_s, u"a"_s, {}), u"3"_s);
}

void TestRowEdit::closedDatabaseIsRefusedInTheUnit()
{
    CTblServices service;
    RowEdit edit(service);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, edit.save([&] { service.m_sName = u"کرایه"_s; }));
    QCOMPARE(value("SELECT COUNT(*) FROM Services"), u"0"_s);
}

static const RegisteredTest<TestRowEdit, QCoreApplication> registeredRowEdit;
#include "TestRowEdit.moc"
