// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookMarks.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class FramedDialog : public KDialog
{
public:
    explicit FramedDialog(int fields)
    {
        auto *page = new QWidget(this);
        auto *card = new QGroupBox(page);
        auto *grid = new FormGrid(card);
        for (int i = 0; i < fields; ++i) {
            lines.append(new KEdit(card));
            addLabelled(grid, u"فیلد %1 :"_s.arg(i), lines.constLast());
        }
        (new CardStack(page))->addCard(card);
        buttons = createButtons();
        setContent(page, buttons);
        active = new QCheckBox(u"فعال"_s);
        footer()->addWidget(active);
    }

    QList<bool> told;
    QList<KEdit *> lines;
    QDialogButtonBox *buttons = nullptr;
    QCheckBox *active = nullptr;

protected:
    void typedWorkChanged(bool typed) override { told.append(typed); }
};

}

namespace {

class ButtonsFirstDialog : public KDialog
{
public:
    ButtonsFirstDialog()
    {
        QDialogButtonBox *buttons = createButtons();
        auto *page = new QWidget(this);
        auto *column = new QVBoxLayout(page);
        column->addWidget(line = new KEdit(page));
        setContent(page, buttons, Content::Fills);
    }

    KEdit *line = nullptr;
};

}

// The frame that every window of entries has: its page above a footer, and what it knows of unsaved work.
class TestDialogFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void footerStaysInSightHoweverLongThePage()
    {
        FramedDialog dialog(200);
        dialog.show();
        const QRect inside = dialog.rect();
        for (QWidget *widget : {static_cast<QWidget *>(dialog.active), static_cast<QWidget *>(dialog.buttons)})
            QVERIFY(inside.contains(QRect(widget->mapTo(&dialog, QPoint()), widget->size())));
        QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
        const auto *area = dialog.findChild<QScrollArea *>();
        QVERIFY(area->widget()->height() > area->height());
        QVERIFY(area->widget()->width() <= area->viewport()->width());
    }

    void smallPageShowsWhole()
    {
        FramedDialog dialog(3);
        dialog.show();
        const auto *area = dialog.findChild<QScrollArea *>();
        QVERIFY(area->widget()->height() <= area->viewport()->height());
    }

    void tabGoesThroughThePageThenTheFooter()
    {
        FramedDialog dialog(3);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        dialog.lines.constFirst()->setFocus();
        QList<QWidget *> met;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            met.append(QApplication::focusWidget());
        }
        const QList<QAbstractButton *> answers = dialog.buttons->buttons();
        QCOMPARE(met.mid(0, 3), (QList<QWidget *>{dialog.lines.at(1), dialog.lines.at(2), dialog.active}));
        QCOMPARE(static_cast<QPushButton *>(met.at(3))->text(), u"تاييد"_s);
        QVERIFY(answers.contains(static_cast<QAbstractButton *>(met.at(4))));
    }

    void whatComesIntoThePageLaterIsMetBeforeTheFooter()
    {
        FramedDialog dialog(1);
        auto *late = new KEdit(dialog.lines.constFirst()->parentWidget());
        addLabelled(static_cast<FormGrid *>(late->parentWidget()->layout()), u"دیرتر :"_s, late);
        dialog.show();
        auto *later = new KEdit(late->parentWidget());
        addLabelled(static_cast<FormGrid *>(late->parentWidget()->layout()), u"پس از نمایش :"_s, later);
        later->show();
        dialog.entriesLoaded(later);
        QApplication::setActiveWindow(&dialog);
        dialog.lines.constFirst()->setFocus();
        QList<QWidget *> met;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            met.append(QApplication::focusWidget());
        }
        QCOMPARE(met, (QList<QWidget *>{late, later, dialog.active}));
    }

    void theWindowBeginsWithThePageAlsoWhenTheButtonsWereMadeFirst()
    {
        ButtonsFirstDialog dialog;
        dialog.show();
        QStringList met;
        for (QWidget *widget = dialog.nextInFocusChain(); widget != &dialog; widget = widget->nextInFocusChain()) {
            if (widget == dialog.line)
                met.append(u"line"_s);
            else if (const auto *button = qobject_cast<QPushButton *>(widget))
                met.append(button->text());
        }
        QCOMPARE(met, (QStringList{u"line"_s, u"تاييد"_s, u"انصراف"_s}));
        for (const QPushButton *button : dialog.findChildren<QPushButton *>()) {
            QVERIFY(button->isVisible());
            QCOMPARE(button->isDefault(), button->text() == u"تاييد"_s);
        }
    }

    void okIsTheOnlyFilledButton()
    {
        FramedDialog dialog(1);
        int primary = 0;
        for (const QPushButton *button : dialog.findChildren<QPushButton *>())
            primary += LookMarks::button(button) == LookMarks::Button::Primary;
        QCOMPARE(primary, 1);
    }

    void unsavedWorkIsToldOnceAndTakenBack()
    {
        FramedDialog dialog(2);
        dialog.show();
        QCoreApplication::processEvents();
        QVERIFY(dialog.told.isEmpty());
        dialog.lines.constFirst()->insert(u"متن"_s);
        QTRY_COMPARE(dialog.told, QList<bool>{true});
        dialog.lines.constFirst()->clear();
        QTRY_COMPARE(dialog.told, (QList<bool>{true, false}));
        dialog.active->click();
        QTRY_COMPARE(dialog.told, (QList<bool>{true, false, true}));
    }
};

static const RegisteredTest<TestDialogFrame, QApplication> registeredDialogFrame;
#include "TestDialogFrame.moc"
