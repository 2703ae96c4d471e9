// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLook.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/look/HostColors.h"
#include "tests/look/ClippedTexts.h"
#include "tests/look/FocusWalk.h"
#include "tests/look/GridEdges.h"
#include "tests/look/LookOffice.h"
#include "tests/look/Placement.h"
#include "tests/look/WindowParts.h"
#include "tests/look/WindowTable.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QScreen>
#include <QSet>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// These show nothing by themselves: what the editors share, and what fills or asks for one of the other windows.
const QSet<QString> noWindows{u"CDlgRecordEditor"_s, u"CDlgMatchingCars"_s, u"CDlgMatchingDemands"_s, u"CDlgDocCreated"_s};

}

// Every window of the program on a screen of the size that the test was started with, with demo data: nothing is cut, nothing lies
// outside or over its neighbours, fields stand on the grid, and each stop of the Tab key shows the focus. Leaves a picture of
// each in the folder that the variable TZ_LOOK_PICTURES names.
class TestEveryWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<LookOffice> m_office;
    std::vector<WindowTable::Entry> m_entries;
    QDir m_pictures;
    QString m_size;
    bool m_dark = false;
    QSet<QString> m_seen;
    QStringList m_faults;

    void look(QWidget &window, const QString &name)
    {
        noteClasses(window);
        QStringList found;
        const HostColors::Look wanted = m_dark ? HostColors::Look::Dark : HostColors::Look::Light;
        if (HostColors::look() != wanted || window.palette().color(QPalette::Window) != HostColors::of(HostColors::Role::Window, wanted))
            found += u"it has another look than was chosen"_s;
        if (!m_dark) {
            found += Placement::beyondScreen(window);
            found += Placement::outOfReach(window);
            found += Placement::overlaps(window);
            found += ClippedTexts::in(window);
            found += GridEdges::fields(window);
            found += GridEdges::cards(window);
        }
        const QString file = u"%1-%2-%3.png"_s.arg(name, m_size, m_dark ? u"dark"_s : u"light"_s);
        if (!window.grab().save(m_pictures.filePath(file)))
            found += u"its picture cannot be written"_s;
        if (window.isActiveWindow())
            found += FocusWalk::faults(window);
        for (const QString &fault : std::as_const(found))
            m_faults.append(u"%1: %2"_s.arg(name, fault));
    }

    void noteClasses(const QWidget &window)
    {
        QList<QWidget *> parts = WindowParts::of(window);
        parts.append(const_cast<QWidget *>(&window));
        for (const QWidget *part : std::as_const(parts)) {
            for (const QMetaObject *type = part->metaObject(); type; type = type->superClass())
                m_seen.insert(QString::fromLatin1(type->className()));
        }
    }

    static QStringList windowsOfTheSources()
    {
        QStringList names;
        for (const QString &top : {u"auto"_s, u"suite"_s, u"host"_s}) {
            QDirIterator headers(u"" TZ_SOURCE_DIR "/"_s + top, {u"CDlg*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
            while (headers.hasNext())
                names.append(QFileInfo(headers.next()).baseName());
        }
        return names;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_dark = qEnvironmentVariable("TZ_LOOK") == u"dark";
        HostLook::apply(*qApp);
        const QScreen &screen = *QGuiApplication::primaryScreen();
        const QSize pixels = screen.geometry().size() * screen.devicePixelRatio();
        m_size = u"%1x%2-%3"_s.arg(pixels.width()).arg(pixels.height()).arg(qRound(screen.devicePixelRatio() * 100));
        m_pictures = QDir(qEnvironmentVariable("TZ_LOOK_PICTURES", u"look"_s));
        QVERIFY(m_pictures.mkpath(u"."_s));
        m_office = std::make_unique<LookOffice>();
        // Known only now: the choice is kept with the user's settings.
        HostLook::choose(m_dark ? HostLook::Choice::Dark : HostLook::Choice::Light);
        m_entries = WindowTable::all(*m_office);
    }

    void cleanupTestCase()
    {
        m_entries.clear();
        m_office.reset();
    }

    void window_data()
    {
        QTest::addColumn<int>("entry");
        for (std::size_t entry = 0; entry < m_entries.size(); ++entry)
            QTest::newRow(m_entries[entry].name) << int(entry);
    }

    void window()
    {
        QFETCH(int, entry);
        const WindowTable::Entry &shown = m_entries[std::size_t(entry)];
        m_faults.clear();
        int views = 0;
        shown.show([&](QWidget &window, const QString &view) {
            const QString name = QLatin1String(shown.name);
            ++views;
            look(window, view.isEmpty() ? name : name + u'-' + view);
        });
        QVERIFY(views > 0);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        if (!m_faults.isEmpty())
            QFAIL(qPrintable(u"%1 fault(s)\n"_s.arg(m_faults.size()) + m_faults.join(u'\n')));
    }

    void everyWindowIsAmongThem()
    {
        const QStringList names = windowsOfTheSources();
        QVERIFY(names.size() > 50);
        QStringList missing;
        for (const QString &name : names) {
            if (!m_seen.contains(name) && !noWindows.contains(name))
                missing.append(name);
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u' ')));
    }
};

static const RegisteredTest<TestEveryWindow, KApplication> registeredEveryWindow;

#include "TestEveryWindow.moc"
