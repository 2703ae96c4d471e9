// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

class SampleDialog : public KDialog
{
public:
    SampleDialog()
    {
        auto *layout = new QVBoxLayout(this);
        for (QWidget *widget :
             std::initializer_list<QWidget *>{first, pick, readOnly, date, acting, disabled, combo, check, last})
            layout->addWidget(widget);
        readOnly->setReadOnly(true);
        disabled->setEnabled(false);
        date->setCheckable(true);
        pick->setFocusPolicy(Qt::TabFocus);
        acting->setFocusPolicy(Qt::StrongFocus);
        acting->setProperty(actsOnEnter, true);
        buttons = createButtons();
        layout->addWidget(buttons);
    }

    bool OnOK() override
    {
        ++okCount;
        return agrees;
    }
    void OnCancel() override { ++cancelCount; }

    QPushButton *button(QDialogButtonBox::ButtonRole role) const
    {
        for (QAbstractButton *candidate : buttons->buttons()) {
            if (buttons->buttonRole(candidate) == role)
                return qobject_cast<QPushButton *>(candidate);
        }
        return nullptr;
    }

    QLineEdit *first = new QLineEdit(this);
    QToolButton *pick = new QToolButton(this);
    QLineEdit *readOnly = new QLineEdit(this);
    KDateEdit *date = new KDateEdit(this);
    QWidget *acting = new QWidget(this);
    QLineEdit *disabled = new QLineEdit(this);
    QComboBox *combo = new QComboBox(this);
    QCheckBox *check = new QCheckBox(this);
    QLineEdit *last = new QLineEdit(this);
    QDialogButtonBox *buttons = nullptr;
    bool agrees = true;
    int okCount = 0;
    int cancelCount = 0;
};

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

}

class TestKDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isRightToLeft();
    void buttonsCarryTheirCaptions();
    void enterGoesFromFieldToField();
    void enterOnTheLastFieldAccepts();
    void fieldThatGetsTheFocusIsScrolledIntoSight();
    void enterOnTheLastFieldWithoutOkStays();
    void enterOnAButtonPressesIt();
    void enterInALongTextIsALine();
    void controlEnterAcceptsFromAnywhere();
    void enterWithADisabledDefaultDoesNothing();
    void refusedOkStaysOpen();
    void escapeCancels();
    void closingTheWindowCancels();
    void sizeIsRemembered();
    void sizeOfAnotherNameIsNotTaken();
    void storedSizeBeyondTheScreenIsCut();
    void firstSizeBeyondTheScreenIsCut();
    void nothingIsKeptWithoutAName();

private:
    QTemporaryDir m_folder;
};

void TestKDialog::initTestCase()
{
    setSettingsFile(m_folder.filePath(u"settings.ini"_s));
}

void TestKDialog::isRightToLeft()
{
    SampleDialog dialog;
    QCOMPARE(dialog.layoutDirection(), Qt::RightToLeft);
    QCOMPARE(dialog.first->layoutDirection(), Qt::RightToLeft);
}

void TestKDialog::buttonsCarryTheirCaptions()
{
    SampleDialog dialog;
    QCOMPARE(dialog.button(QDialogButtonBox::AcceptRole)->text(), u"تاييد"_s);
    QCOMPARE(dialog.button(QDialogButtonBox::RejectRole)->text(), u"انصراف"_s);
    QVERIFY(dialog.button(QDialogButtonBox::AcceptRole)->isDefault());
}

void TestKDialog::enterGoesFromFieldToField()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.first->setFocus();
    for (QWidget *expected : std::initializer_list<QWidget *>{dialog.date, dialog.combo, dialog.check, dialog.last}) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        QCOMPARE(dialog.focusWidget(), expected);
    }
    QCOMPARE(dialog.okCount, 0);
}

void TestKDialog::enterOnTheLastFieldAccepts()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.last->setFocus();
    QTest::keyClick(dialog.last, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(dialog.okCount, 1);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.cancelCount, 0);
}

// On a small screen: a page that scrolls shows the field that Enter goes to, or that a refusal sends the user to.
void TestKDialog::fieldThatGetsTheFocusIsScrolledIntoSight()
{
    KDialog dialog;
    QScrollArea area(&dialog);
    area.resize(200, 100);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    QList<QLineEdit *> fields;
    for (int i = 0; i < 30; ++i) {
        fields.append(new QLineEdit);
        layout->addWidget(fields.last());
    }
    area.setWidget(page);
    showActive(dialog);
    const auto inSight = [&area](const QWidget *field) {
        return area.viewport()->rect().contains(QRect(field->mapTo(area.viewport(), QPoint()), field->size()));
    };
    fields.first()->setFocus();
    for (int i = 1; i < 10; ++i)
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.focusWidget(), fields[9]);
    QVERIFY(inSight(fields[9]));
    fields.last()->setFocus(Qt::OtherFocusReason);
    QVERIFY(inSight(fields.last()));
}

void TestKDialog::enterOnTheLastFieldWithoutOkStays()
{
    KDialog dialog;
    QLineEdit field(&dialog);
    showActive(dialog);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
}

void TestKDialog::enterOnAButtonPressesIt()
{
    SampleDialog dialog;
    int picked = 0;
    connect(dialog.pick, &QToolButton::clicked, &dialog, [&picked] { ++picked; });
    showActive(dialog);
    dialog.pick->setFocus();
    QTest::keyClick(dialog.pick, Qt::Key_Return);
    QCOMPARE(picked, 1);
    QVERIFY(dialog.isVisible());
    dialog.button(QDialogButtonBox::RejectRole)->setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.cancelCount, 1);
    QCOMPARE(dialog.okCount, 0);
    QVERIFY(!dialog.isVisible());
}

void TestKDialog::enterInALongTextIsALine()
{
    SampleDialog dialog;
    QPlainTextEdit text(&dialog);
    showActive(dialog);
    text.setFocus();
    QTest::keyClick(&text, Qt::Key_Return);
    QCOMPARE(text.toPlainText(), u"\n"_s);
    QCOMPARE(dialog.focusWidget(), &text);
}

void TestKDialog::controlEnterAcceptsFromAnywhere()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.first->setFocus();
    QTest::keyClick(dialog.first, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(dialog.okCount, 1);
    QVERIFY(!dialog.isVisible());
}

void TestKDialog::enterWithADisabledDefaultDoesNothing()
{
    SampleDialog dialog;
    dialog.button(QDialogButtonBox::AcceptRole)->setEnabled(false);
    showActive(dialog);
    dialog.last->setFocus();
    QTest::keyClick(dialog.last, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.okCount, 0);
    QCOMPARE(dialog.cancelCount, 0);
}

void TestKDialog::refusedOkStaysOpen()
{
    SampleDialog dialog;
    dialog.agrees = false;
    showActive(dialog);
    dialog.button(QDialogButtonBox::AcceptRole)->click();
    QVERIFY(dialog.isVisible());
    dialog.agrees = true;
    dialog.button(QDialogButtonBox::AcceptRole)->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.okCount, 2);
}

void TestKDialog::escapeCancels()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.first->setFocus();
    QTest::keyClick(dialog.first, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.cancelCount, 1);
    QCOMPARE(dialog.okCount, 0);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestKDialog::closingTheWindowCancels()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.close();
    QCOMPARE(dialog.cancelCount, 1);
}

void TestKDialog::sizeIsRemembered()
{
    const QSize size(460, 420);
    {
        SampleDialog dialog;
        dialog.SetSettingName(u"AutomobilContracts\\Editor"_s);
        dialog.show();
        dialog.resize(size);
        dialog.reject();
    }
    SampleDialog again;
    again.SetSettingName(u"AutomobilContracts\\Editor"_s);
    again.show();
    QCOMPARE(again.size(), size);
}

void TestKDialog::sizeOfAnotherNameIsNotTaken()
{
    WriteSetting(u"One"_s, u"iWidth"_s, 611);
    WriteSetting(u"One"_s, u"iHeight"_s, 433);
    SampleDialog dialog;
    dialog.SetSettingName(u"Two"_s);
    dialog.show();
    QVERIFY(dialog.size() != QSize(611, 433));
}

void TestKDialog::storedSizeBeyondTheScreenIsCut()
{
    WriteSetting(u"Huge"_s, u"iWidth"_s, 99999);
    WriteSetting(u"Huge"_s, u"iHeight"_s, 99999);
    SampleDialog dialog;
    dialog.SetSettingName(u"Huge"_s);
    dialog.show();
    QCOMPARE(dialog.width(), dialog.screen()->availableSize().width());
    QVERIFY(dialog.height() < dialog.screen()->availableSize().height());
    QVERIFY(dialog.height() > dialog.screen()->availableSize().height() - 60);
}

void TestKDialog::firstSizeBeyondTheScreenIsCut()
{
    SampleDialog dialog;
    dialog.resize(5000, 5000);
    dialog.show();
    QVERIFY(dialog.width() <= dialog.screen()->availableSize().width());
    QVERIFY(dialog.height() < dialog.screen()->availableSize().height());
}

void TestKDialog::nothingIsKeptWithoutAName()
{
    SampleDialog dialog;
    dialog.show();
    dialog.accept();
    QCOMPARE(ReadSetting(QString(), u"iWidth"_s, -1), -1);
}

static const RegisteredTest<TestKDialog, QApplication> registeredKDialog;
#include "TestKDialog.moc"
