// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/SystemLook.h"

#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A desktop's settings portal on a bus of the test's own.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(const QDBusConnection &bus)
        : m_bus(bus)
    {
        m_isThere = m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this, QDBusConnection::ExportAllSlots)
            && m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~FakePortal() override { m_bus.unregisterService(u"org.freedesktop.portal.Desktop"_s); }

    bool isThere() const { return m_isThere; }
    void set(const QVariant &scheme)
    {
        m_scheme = scheme;
        tell(u"org.freedesktop.appearance"_s, u"color-scheme"_s, scheme);
    }
    void tell(const QString &space, const QString &key, const QVariant &value)
    {
        QDBusMessage changed = QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Settings"_s,
                                                          u"SettingChanged"_s);
        changed << space << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(changed);
    }

    QVariant m_scheme;

public Q_SLOTS:
    // As the portal does, wraps the value once more.
    QDBusVariant Read(const QString &space, const QString &key)
    {
        const bool isKnown = space == u"org.freedesktop.appearance"_s && key == u"color-scheme"_s;
        return QDBusVariant(isKnown ? QVariant::fromValue(QDBusVariant(m_scheme)) : QVariant());
    }

private:
    QDBusConnection m_bus;
    bool m_isThere = false;
};

}

class TestSystemLook : public QObject
{
    Q_OBJECT

    using Look = HostColors::Look;

    QTemporaryDir m_folder;
    QProcess m_bus;
    QString m_address;
    int m_connections = 0;

    QDBusConnection connected() { return QDBusConnection::connectToBus(m_address, u"look %1"_s.arg(++m_connections)); }

private Q_SLOTS:
    void initTestCase()
    {
        m_address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
        m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nosyslog"_s, u"--print-address"_s, u"--address="_s + m_address});
        QVERIFY2(m_bus.waitForStarted(), "dbus-daemon");
        QVERIFY(m_bus.waitForReadyRead(20'000));
        QVERIFY(connected().isConnected());
    }

    void cleanupTestCase()
    {
        m_bus.terminate();
        QVERIFY(m_bus.waitForFinished());
    }

    void schemes_data()
    {
        QTest::addColumn<QVariant>("scheme");
        QTest::addColumn<int>("look");
        QTest::newRow("no preference") << QVariant(0U) << -1;
        QTest::newRow("dark") << QVariant(1U) << int(Look::Dark);
        QTest::newRow("light") << QVariant(2U) << int(Look::Light);
        QTest::newRow("of a later portal") << QVariant(7U) << -1;
        QTest::newRow("no number") << QVariant(u"dark"_s) << -1;
        QTest::newRow("nothing") << QVariant() << -1;
        QTest::newRow("wrapped") << QVariant::fromValue(QDBusVariant(1U)) << int(Look::Dark);
        QTest::newRow("wrapped twice") << QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(2U)))) << int(Look::Light);
    }

    void schemes()
    {
        QFETCH(QVariant, scheme);
        const std::optional<Look> look = SystemLook::fromScheme(scheme);
        QTEST(look ? int(*look) : -1, "look");
    }

    void desktopIsAskedWithoutWaiting()
    {
        FakePortal portal(connected());
        QVERIFY(portal.isThere());
        portal.m_scheme = 1U;
        SystemLook system(connected(), Look::Light);
        QSignalSpy changed(&system, &SystemLook::changed);
        // Nothing is known yet, and nothing was waited for.
        QCOMPARE(system.look(), Look::Light);
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(system.look(), Look::Dark);
    }

    void changesAreFollowed()
    {
        FakePortal portal(connected());
        portal.m_scheme = 2U;
        SystemLook system(connected(), Look::Dark);
        QSignalSpy changed(&system, &SystemLook::changed);
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(system.look(), Look::Light);
        portal.set(1U);
        QTRY_COMPARE(changed.count(), 2);
        QCOMPARE(system.look(), Look::Dark);
        // Other settings, and one that says the same, change nothing.
        portal.tell(u"org.freedesktop.appearance"_s, u"accent-color"_s, 2U);
        portal.tell(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, 2U);
        portal.set(1U);
        portal.set(2U);
        QTRY_COMPARE(changed.count(), 3);
        QCOMPARE(system.look(), Look::Light);
        // What is not known leaves it to what was found at the start.
        portal.set(9U);
        QTRY_COMPARE(changed.count(), 4);
        QCOMPARE(system.look(), Look::Dark);
    }

    void withoutAPortalItStaysAsItWasFound()
    {
        SystemLook system(connected(), Look::Dark);
        QSignalSpy changed(&system, &SystemLook::changed);
        QTest::qWait(200);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(system.look(), Look::Dark);
    }

    void withoutABusItStaysAsItWasFound()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", {});
        qputenv("XDG_RUNTIME_DIR", m_folder.filePath(u"none"_s).toLocal8Bit());
        const QDBusConnection none = SystemLook::sessionBus();
        QVERIFY(!none.isConnected());
        QCOMPARE(SystemLook(none, Look::Dark).look(), Look::Dark);
        QCOMPARE(SystemLook(none, Look::Light).look(), Look::Light);
    }
};

static const RegisteredTest<TestSystemLook, QApplication> registeredSystemLook;
#include "TestSystemLook.moc"
