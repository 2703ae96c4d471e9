// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;

class TestFieldLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelAndControlAreOneCaption()
    {
        QWidget page;
        auto *line = new QLineEdit(&page);
        const QString caption = u"نام :"_s;
        const QLabel *label = labelFor(caption, line);
        QCOMPARE(label->text(), caption);
        QCOMPARE(label->buddy(), line);
        QCOMPARE(label->parentWidget(), &page);
        QCOMPARE(line->accessibleName(), caption);
    }

    void latinCaptionIsReadFromTheRightAndNamedAsItStands()
    {
        QWidget page;
        auto *line = new QLineEdit(&page);
        const QString caption = u"VIN :"_s;
        QCOMPARE(labelFor(caption, line)->text(), QChar(0x200F) + caption);
        QCOMPARE(line->accessibleName(), caption);
    }

    void nameOfTheControlGoesBeforeItsCaption()
    {
        QWidget page;
        const QString caption = u"تا :"_s;
        auto *named = new QLineEdit(&page);
        named->setAccessibleName(u"تاريخ تا :"_s);
        QCOMPARE(labelFor(caption, named)->text(), caption);
        QCOMPARE(named->accessibleName(), u"تاريخ تا :"_s);
        QCOMPARE(labelFor(caption, named, u"مبلغ تا :"_s)->text(), caption);
        QCOMPARE(named->accessibleName(), u"مبلغ تا :"_s);
    }

    void entryLineThatTakesTheFocusHasTheNameToo()
    {
        QWidget page;
        auto *plain = new QComboBox(&page);
        auto *editable = new QComboBox(&page);
        editable->setEditable(true);
        auto *number = new QSpinBox(&page);
        const QString caption = u"اندازه :"_s;
        for (QWidget *control : {static_cast<QWidget *>(plain), static_cast<QWidget *>(editable), static_cast<QWidget *>(number)}) {
            nameControl(control, caption);
            QCOMPARE(control->accessibleName(), caption);
        }
        QCOMPARE(editable->lineEdit()->accessibleName(), caption);
        QCOMPARE(number->findChild<QLineEdit *>()->accessibleName(), caption);
    }

    void labelStandsBeforeItsControl()
    {
        QWidget page;
        auto *column = new QVBoxLayout(&page);
        auto *form = new QFormLayout;
        auto *row = new QHBoxLayout;
        auto *grid = new QGridLayout;
        for (QLayout *layout : {static_cast<QLayout *>(form), static_cast<QLayout *>(row), static_cast<QLayout *>(grid)})
            column->addLayout(layout);
        auto *inForm = new QLineEdit;
        auto *inRow = new QLineEdit;
        auto *inGrid = new QLineEdit;
        const QString caption = u"شرح :"_s;
        QLabel *formLabel = addLabelled(form, caption, inForm);
        QCOMPARE(form->labelForField(inForm), formLabel);
        QLabel *rowLabel = addLabelled(row, caption, inRow, 1);
        QCOMPARE(row->indexOf(rowLabel), 0);
        QCOMPARE(row->indexOf(inRow), 1);
        QCOMPARE(row->stretch(1), 1);
        QLabel *gridLabel = addLabelled(grid, 2, 4, caption, inGrid, 3);
        QCOMPARE(grid->itemAtPosition(2, 4)->widget(), gridLabel);
        for (const int last : {5, 6, 7})
            QCOMPARE(grid->itemAtPosition(2, last)->widget(), inGrid);
        for (const QLabel *label : {formLabel, rowLabel, gridLabel})
            QCOMPARE(label->parentWidget(), &page);
    }
};

static const RegisteredTest<TestFieldLabel, QApplication> registeredFieldLabel;
#include "TestFieldLabel.moc"
