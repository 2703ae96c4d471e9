// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLook.h"

#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A window as the program has them.
class SomeWindow : public QWidget
{
public:
    SomeWindow()
        : field(new KEdit(this))
        , shown(new KEdit(this))
        , choice(new KDropDown(this))
        , button(new QPushButton(LookIcons::icon(u":/icons/edit.svg"_s), u"ویرایش"_s, this))
    {
        shown->setReadOnly(true);
        auto *column = new QVBoxLayout(this);
        for (QWidget *part : {static_cast<QWidget *>(field), static_cast<QWidget *>(shown), static_cast<QWidget *>(choice),
                              static_cast<QWidget *>(button)})
            column->addWidget(part);
        resize(300, 200);
        show();
    }

    QColor groundOf(QWidget *part) { return part->grab().toImage().pixelColor(part->width() / 2, part->height() - 6); }

    KEdit *field;
    KEdit *shown;
    KDropDown *choice;
    QPushButton *button;
};

}

class TestHostLook : public QObject
{
    Q_OBJECT

    using Look = HostColors::Look;
    using Role = HostColors::Role;
    using Choice = HostLook::Choice;

    QTemporaryDir m_folder;
    int m_run = 0;

    static QColor of(Role role, Look look) { return HostColors::of(role, look); }

private Q_SLOTS:
    void initTestCase()
    {
        // No desktop of whoever runs the tests.
        qputenv("DBUS_SESSION_BUS_ADDRESS", {});
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
        HostLook::apply(*qApp);
    }
    void init() { setSettingsFile(m_folder.filePath(u"settings%1.ini"_s.arg(++m_run))); }
    void cleanup() { HostLook::choose(Choice::Light); }

    void withoutAChoiceTheDesktopDecides()
    {
        QCOMPARE(HostLook::choice(), Choice::AsSystem);
        QCOMPARE(HostLook::lookOf(Choice::AsSystem), Look::Light);
        HostLook::showChoice();
        QCOMPARE(HostColors::look(), Look::Light);
    }

    void choiceIsKeptOverARestart()
    {
        HostLook::choose(Choice::Dark);
        const QString file = settingsFile();
        // Another settings file is another user.
        setSettingsFile(m_folder.filePath(u"other.ini"_s));
        HostLook::showChoice();
        QCOMPARE(HostColors::look(), Look::Light);
        setSettingsFile(file);
        QCOMPARE(HostLook::choice(), Choice::Dark);
        HostLook::showChoice();
        QCOMPARE(HostColors::look(), Look::Dark);
        HostLook::choose(Choice::AsSystem);
        QCOMPARE(HostLook::choice(), Choice::AsSystem);
        QCOMPARE(HostColors::look(), Look::Light);
    }

    void unknownChoiceIsAsTheSystem_data()
    {
        QTest::addColumn<QString>("kept");
        for (const QString &kept : {u"sepia"_s, u""_s, u"3"_s, u"Dark"_s})
            QTest::addRow("'%s'", qPrintable(kept)) << kept;
    }

    void unknownChoiceIsAsTheSystem()
    {
        QFETCH(QString, kept);
        HostLook::choose(Choice::Dark);
        WriteSetting(u"tzhost\\Look"_s, u"sPalette"_s, kept);
        QCOMPARE(HostLook::choice(), Choice::AsSystem);
        HostLook::showChoice();
        QCOMPARE(HostColors::look(), Look::Light);
    }

    void openWindowsChangeAtOnce()
    {
        HostLook::choose(Choice::Light);
        SomeWindow window;
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto check = [&window](Look look) {
            QCOMPARE(QApplication::palette().color(QPalette::Window), of(Role::Window, look));
            QCOMPARE(window.groundOf(window.field), of(Role::Surface, look));
            QCOMPARE(window.groundOf(window.shown), of(Role::Sunken, look));
            QCOMPARE(window.choice->palette().color(QPalette::Disabled, QPalette::Text), of(Role::Text, look));
            QCOMPARE(window.field->palette().color(QPalette::Text), of(Role::Text, look));
            QCOMPARE(window.grab().toImage().pixelColor(2, 2), of(Role::Window, look));
            // The picture too, though its button keeps the same icon.
            const QImage icon = window.button->icon().pixmap(24, 24).toImage();
            bool found = false;
            for (int y = 0; y < icon.height(); ++y) {
                for (int x = 0; x < icon.width(); ++x)
                    found = found || icon.pixelColor(x, y) == of(Role::Icon, look);
            }
            QVERIFY(found);
        };
        check(Look::Light);
        for (const auto &[choice, look] : {std::pair(Choice::Dark, Look::Dark), std::pair(Choice::Light, Look::Light)}) {
            HostLook::choose(choice);
            // Windows are told by events.
            QCoreApplication::processEvents();
            check(look);
        }
    }
};

static const RegisteredTest<TestHostLook, QApplication> registeredHostLook;
#include "TestHostLook.moc"
