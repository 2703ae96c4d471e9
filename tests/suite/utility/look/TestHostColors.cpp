// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPalette>
#include <QSet>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using HostColors::Look;
using HostColors::Pair;
using HostColors::Role;

constexpr Look looks[] = {Look::Light, Look::Dark};
constexpr double leastOfText = 4.5;
constexpr double leastOfMarks = 3;

QString nameOf(Role role)
{
    return QString::fromLatin1(HostColors::name(role));
}

// The pairs that are harder to tell apart than they may be, in words.
QStringList unreadable(std::span<const Pair> pairs, Look look)
{
    QStringList faults;
    for (const Pair &pair : pairs) {
        const double contrast = HostColors::contrast(HostColors::of(pair.ink, look), HostColors::of(pair.ground, look));
        if (contrast < (pair.isText ? leastOfText : leastOfMarks))
            faults.append(u"%1 on %2 is %3 : 1"_s.arg(nameOf(pair.ink), nameOf(pair.ground)).arg(contrast, 0, 'f', 2));
    }
    return faults;
}

}

class TestHostColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { HostColors::setLook(Look::Light); }

    // By the formula's own corner stones.
    void contrastFollowsTheFormula()
    {
        QCOMPARE(HostColors::contrast(Qt::white, Qt::white), 1.0);
        QCOMPARE(HostColors::contrast(Qt::white, Qt::black), 21.0);
        QCOMPARE(HostColors::contrast(Qt::black, Qt::white), 21.0);
        const double grey = HostColors::contrast(QColor(0x77, 0x77, 0x77), Qt::white);
        QVERIFY2(qAbs(grey - 4.478) < 0.001, qPrintable(QString::number(grey)));
    }

    void everyPairCanBeRead_data()
    {
        QTest::addColumn<Look>("look");
        QTest::newRow("light") << Look::Light;
        QTest::newRow("dark") << Look::Dark;
    }

    void everyPairCanBeRead()
    {
        QFETCH(Look, look);
        QVERIFY(HostColors::pairs().size() > 30);
        const QStringList faults = unreadable(HostColors::pairs(), look);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    // Text in the colour of disabled text, a border in that of a rule.
    void aPairThatCannotBeReadIsFound()
    {
        for (const Look look : looks) {
            const std::vector<Pair> bad{{Role::Disabled, Role::Surface, true}, {Role::Text, Role::Surface, true}, {Role::Line, Role::Surface, false}};
            const QStringList faults = unreadable(bad, look);
            QCOMPARE(faults.size(), 2);
            QVERIFY(faults.constFirst().startsWith(u"disabled on surface is "_s));
            QVERIFY(faults.constLast().startsWith(u"line on surface is "_s));
        }
        // Enough for a border, and too little for text.
        const Pair edge{Role::Edge, Role::Surface, true};
        QCOMPARE(unreadable({&edge, 1}, Look::Light).size(), 1);
    }

    void everyRoleHasItsName()
    {
        QSet<QString> names;
        for (int role = 0; role < int(Role::Count); ++role) {
            QVERIFY(!nameOf(Role(role)).isEmpty());
            names.insert(nameOf(Role(role)));
        }
        QCOMPARE(names.size(), qsizetype(Role::Count));
        QCOMPARE(nameOf(Role::DangerSoft), u"dangerSoft"_s);
    }

    void everyRoleHasAColourOfEachLook()
    {
        for (int role = 0; role < int(Role::Count); ++role) {
            for (const Look look : looks)
                QVERIFY2(HostColors::of(Role(role), look).alpha() == 255 || Role(role) == Role::Shadow, HostColors::name(Role(role)));
        }
        for (const Role role : {Role::Window, Role::Surface, Role::Text, Role::Accent, Role::Select})
            QVERIFY2(HostColors::of(role, Look::Light) != HostColors::of(role, Look::Dark), HostColors::name(role));
    }

    void colourFollowsTheLookInUse()
    {
        for (const Look look : looks) {
            HostColors::setLook(look);
            QCOMPARE(HostColors::look(), look);
            for (int role = 0; role < int(Role::Count); ++role)
                QCOMPARE(HostColors::of(Role(role)), HostColors::of(Role(role), look));
        }
    }

    void paletteIsFilledFromTheTable_data()
    {
        QTest::addColumn<QPalette::ColorRole>("qt");
        QTest::addColumn<Role>("role");
        QTest::newRow("Window") << QPalette::Window << Role::Window;
        QTest::newRow("Base") << QPalette::Base << Role::Surface;
        QTest::newRow("Button") << QPalette::Button << Role::Surface;
        QTest::newRow("AlternateBase") << QPalette::AlternateBase << Role::Stripe;
        QTest::newRow("WindowText") << QPalette::WindowText << Role::Text;
        QTest::newRow("Text") << QPalette::Text << Role::Text;
        QTest::newRow("ButtonText") << QPalette::ButtonText << Role::Text;
        QTest::newRow("PlaceholderText") << QPalette::PlaceholderText << Role::Hint;
        QTest::newRow("Highlight") << QPalette::Highlight << Role::Select;
        QTest::newRow("HighlightedText") << QPalette::HighlightedText << Role::OnSelect;
        QTest::newRow("Link") << QPalette::Link << Role::Link;
        QTest::newRow("Midlight") << QPalette::Midlight << Role::Hover;
        QTest::newRow("Mid") << QPalette::Mid << Role::Line;
        QTest::newRow("Dark") << QPalette::Dark << Role::Edge;
        QTest::newRow("quiet") << HostColors::quietText << Role::Quiet;
        QTest::newRow("hint") << HostColors::hintText << Role::Hint;
        QTest::newRow("danger") << HostColors::dangerText << Role::Danger;
    }

    void paletteIsFilledFromTheTable()
    {
        QFETCH(QPalette::ColorRole, qt);
        QFETCH(Role, role);
        for (const Look look : looks) {
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
                QCOMPARE(HostColors::palette(look).color(group, qt), HostColors::of(role, look));
        }
    }

    void disabledTextIsDisabled()
    {
        for (const Look look : looks) {
            for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
                QCOMPARE(HostColors::palette(look).color(QPalette::Disabled, role), HostColors::of(Role::Disabled, look));
        }
    }
};

static const RegisteredTest<TestHostColors, QApplication> registeredHostColors;

#include "TestHostColors.moc"
