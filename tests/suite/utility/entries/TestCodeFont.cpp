// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KLinesModel.h"
#include "suite/utility/lists/KListModel.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QRawFont>
#include <QTextLayout>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString programFamily = u"Vazirmatn UI FD"_s;

// The glyphs that a text is drawn with, in their order from the left.
QList<quint32> glyphs(const QFont &font, const QString &text)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<quint32> found;
    for (const QGlyphRun &run : layout.glyphRuns())
        found += run.glyphIndexes();
    return found;
}

}

class TestCodeFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QDir fonts(QCoreApplication::applicationDirPath() + u"/../share/tzauto/fonts"_s);
        for (const QDir &folder : {fonts, QDir(fonts.filePath(u"codes"_s))}) {
            for (const QString &file : folder.entryList({u"*.ttf"_s}, QDir::Files))
                QFontDatabase::addApplicationFont(folder.filePath(file));
        }
    }

    void codes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isCode");
        QTest::newRow("VIN") << u"IRFC981V3DK123456"_s << true;
        QTest::newRow("engine number") << u"E-77"_s << true;
        QTest::newRow("model") << u"MVM X22"_s << true;
        QTest::newRow("Persian name with a number") << u"پژو 206"_s << false;
        QTest::newRow("Persian plate") << u"12 ب 345 ایران 67"_s << false;
        QTest::newRow("both scripts") << u"پژو 206 SD"_s << false;
        QTest::newRow("digits alone") << u"12345"_s << false;
        QTest::newRow("letters alone") << u"SD"_s << false;
        QTest::newRow("Persian digits") << u"X۲۲"_s << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void codes()
    {
        QFETCH(QString, text);
        QTEST(CodeFont::isLatinCode(text), "isCode");
    }

    void codesOfASentenceAreFound()
    {
        const QString text = u"مالک: سارا، پلاک 12 ب 345، VIN NAA84985143267289"_s;
        QCOMPARE(CodeFont::codesIn(text), (QList<CodeFont::Stretch>{{text.indexOf(u"NAA84985"_s), 17}}));
        QCOMPARE(CodeFont::codesIn(u"پژو 206 SD در 1405"_s), QList<CodeFont::Stretch>());
    }

    // The same glyph as the second cut has for the digit, and another than the program's font has.
    void digitsOfACodeAreLatin()
    {
        if (!QFontDatabase::hasFamily(programFamily))
            QFAIL("the fonts are missing: scripts/setup.sh font");
        const QFont program(programFamily, 10);
        const QString code = u"X22"_s;
        const QList<quint32> drawn = glyphs(CodeFont::of(program, code), code);
        QCOMPARE(drawn, glyphs(QFont(u"Vazirmatn UI"_s, 10), code));
        QVERIFY(drawn != glyphs(program, code));
        QCOMPARE(CodeFont::of(program, u"پژو 22"_s), program);
    }

    void withoutTheSecondCutTheBaseStays()
    {
        QCOMPARE(CodeFont::families(QFont(u"Noto Sans Arabic"_s)), QStringList{u"Noto Sans Arabic"_s});
        QCOMPARE(CodeFont::families(QFont(programFamily)), (QStringList{u"Vazirmatn UI"_s, programFamily}));
    }

    void entryTakesTheFontOfWhatItHolds()
    {
        const QFont before = QApplication::font();
        QApplication::setFont(QFont(programFamily, 10));
        for (const KEdit::Kind kind : {KEdit::Kind::Code, KEdit::Kind::Text}) {
            KEdit edit(kind);
            edit.setText(u"NAAP03"_s);
            QCOMPARE(edit.font().families().value(0), u"Vazirmatn UI"_s);
            edit.setText(u"12 ب 345"_s);
            QVERIFY(edit.font().families().value(0, programFamily) == programFamily);
            QCOMPARE(edit.font(), QApplication::font());
        }
        KEdit typed;
        for (const QString &letter : {u"X"_s, u"۲"_s}) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letter);
            QCoreApplication::sendEvent(&typed, &press);
        }
        QCOMPARE(typed.text(), u"X2"_s);
        QCOMPARE(typed.font().families().value(0), u"Vazirmatn UI"_s);
        QApplication::setFont(before);
    }

    void dropDownTakesTheFontOfWhatItShows()
    {
        const QFont before = QApplication::font();
        QApplication::setFont(QFont(programFamily, 10));
        KDropDown choice;
        choice.addItems({u"پژو 206"_s, u"X22"_s});
        const auto familyOf = [&choice](int row) { return choice.itemData(row, Qt::FontRole).value<QFont>().families().value(0); };
        QCOMPARE(familyOf(0), programFamily);
        QCOMPARE(familyOf(1), u"Vazirmatn UI"_s);
        choice.setCurrentIndex(1);
        QCOMPARE(choice.font().families().value(0), u"Vazirmatn UI"_s);
        choice.setCurrentIndex(0);
        QCOMPARE(choice.font(), QApplication::font());
        QApplication::setFont(before);
    }

    void cellOfAListTakesTheFontOfWhatItHolds()
    {
        const QFont before = QApplication::font();
        QApplication::setFont(QFont(programFamily, 10));
        KListModel model;
        model.setColumns({{u"a"_s}, {u"b"_s}});
        model.setRows({{1, {{u"X22"_s}, {u"پژو 206"_s}}}});
        QCOMPARE(model.index(0, 0).data(Qt::FontRole).value<QFont>().families().value(0), u"Vazirmatn UI"_s);
        QVERIFY(!model.index(0, 1).data(Qt::FontRole).isValid());
        QApplication::setFont(before);
    }

    void cellOfAGridTakesTheFontOfWhatItHolds()
    {
        const QFont before = QApplication::font();
        QApplication::setFont(QFont(programFamily, 10));
        KLinesModel model({{u"a"_s}, {u"b"_s}, {u"c"_s, KLinesModel::Kind::Money}});
        model.setLines({{{u"X22"_s}, {u"پژو 206 SD"_s}, {{}, 1250}}});
        QCOMPARE(model.index(0, 0).data(Qt::FontRole).value<QFont>().families().value(0), u"Vazirmatn UI"_s);
        QVERIFY(!model.index(0, 1).data(Qt::FontRole).isValid());
        QVERIFY(!model.index(0, 2).data(Qt::FontRole).isValid());
        QApplication::setFont(before);
    }
};

static const RegisteredTest<TestCodeFont, QApplication> registered;
#include "TestCodeFont.moc"
