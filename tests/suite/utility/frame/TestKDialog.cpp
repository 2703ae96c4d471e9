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
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/ModalWindows.h"
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
             std::initializer_list<QWidget *>{first, pick, readOnly, date, acting, disabled, combo, check, text, grid, followed, last})
            layout->addWidget(widget);
        readOnly->setReadOnly(true);
        disabled->setEnabled(false);
        date->setCheckable(true);
        pick->setFocusPolicy(Qt::TabFocus);
        acting->setFocusPolicy(Qt::StrongFocus);
        acting->setProperty(actsOnEnter, true);
        followed->setProperty(followsSelection, true);
        combo->addItems({u"one"_s, u"two"_s, u"one"_s});
        text->setTabChangesFocus(true);
        text->setFocusPolicy(Qt::NoFocus);
        grid->setModel(rows);
        grid->setTabKeyNavigation(false);
        grid->setFocusPolicy(Qt::NoFocus);
        followed->setFocusPolicy(Qt::NoFocus);
        rows->appendRow(new QStandardItem);
        auto *ticked = new QStandardItem(u"tick"_s);
        ticked->setCheckable(true);
        rows->appendRow(ticked);
        buttons = createButtons();
        layout->addWidget(buttons);
    }

    bool OnOK() override
    {
        ++okCount;
        if (whileSaving)
            whileSaving();
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
    QPlainTextEdit *text = new QPlainTextEdit(this);
    QTableView *grid = new QTableView(this);
    QStandardItemModel *rows = new QStandardItemModel(this);
    QLineEdit *followed = new QLineEdit(this);
    QLineEdit *last = new QLineEdit(this);
    QDialogButtonBox *buttons = nullptr;
    std::function<void()> whileSaving;
    bool agrees = true;
    int okCount = 0;
    int cancelCount = 0;
};

using Enter = std::function<void(SampleDialog &)>;

int asked = 0;
bool mayDrop = true;

bool ask(QWidget *)
{
    ++asked;
    return mayDrop;
}

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

}

Q_DECLARE_METATYPE(Enter)

class TestKDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { KDialog::setDropQuestion(nullptr); }
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
    void enteredWorkIsAskedAbout_data();
    void enteredWorkIsAskedAbout();
    void onlyWhatWasEnteredIsAskedAbout_data();
    void onlyWhatWasEnteredIsAskedAbout();
    void keptWorkKeepsTheWindow();
    void cancelButtonIsTheAnswer();
    void savedWorkIsNotAskedAbout();
    void entryThatComesLaterCounts();
    void windowWithoutAnOkButtonHoldsNoWork();
    void windowThatIsSavingCannotBeClosed();
    void secondPressIsTheSamePress();
    void modalWindowsCloseFromTheTop();
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

void TestKDialog::init()
{
    asked = 0;
    mayDrop = true;
    KDialog::setDropQuestion(&ask);
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

void TestKDialog::enteredWorkIsAskedAbout_data()
{
    QTest::addColumn<Enter>("enter");
    QTest::newRow("keys") << Enter([](SampleDialog &dialog) { QTest::keyClicks(dialog.first, u"a"_s); });
    QTest::newRow("screen reader") << Enter([](SampleDialog &dialog) { dialog.first->setText(u"a"_s); });
    QTest::newRow("picked into a read-only line") << Enter([](SampleDialog &dialog) { dialog.readOnly->setText(u"a"_s); });
    QTest::newRow("date") << Enter([](SampleDialog &dialog) { dialog.date->setDate(QDate(2026, 1, 2)); });
    QTest::newRow("tick of a date") << Enter([](SampleDialog &dialog) { dialog.date->setChecked(true); });
    QTest::newRow("choice") << Enter([](SampleDialog &dialog) { dialog.combo->setCurrentIndex(1); });
    QTest::newRow("choice of the same text") << Enter([](SampleDialog &dialog) { dialog.combo->setCurrentIndex(2); });
    QTest::newRow("tick") << Enter([](SampleDialog &dialog) { dialog.check->setChecked(true); });
    QTest::newRow("long text") << Enter([](SampleDialog &dialog) { dialog.text->setPlainText(u"a"_s); });
    QTest::newRow("cell") << Enter([](SampleDialog &dialog) { dialog.rows->item(0)->setText(u"a"_s); });
    QTest::newRow("tick in a grid") << Enter([](SampleDialog &dialog) { dialog.rows->item(1)->setCheckState(Qt::Checked); });
    QTest::newRow("line of a grid") << Enter([](SampleDialog &dialog) { dialog.rows->appendRow(new QStandardItem(u"a"_s)); });
    QTest::newRow("cell being edited") << Enter([](SampleDialog &dialog) {
        dialog.grid->setCurrentIndex(dialog.rows->index(0, 0));
        dialog.grid->edit(dialog.rows->index(0, 0));
        auto *editor = dialog.grid->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, u"a"_s);
        QVERIFY(dialog.rows->item(0)->text().isEmpty());
    });
}

void TestKDialog::enteredWorkIsAskedAbout()
{
    QFETCH(Enter, enter);
    SampleDialog dialog;
    showActive(dialog);
    enter(dialog);
    QVERIFY(dialog.holdsTypedWork());
    dialog.close();
    QCOMPARE(asked, 1);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.cancelCount, 1);
}

void TestKDialog::onlyWhatWasEnteredIsAskedAbout_data()
{
    QTest::addColumn<Enter>("enter");
    QTest::newRow("nothing") << Enter([](SampleDialog &) {});
    QTest::newRow("taken back") << Enter([](SampleDialog &dialog) {
        QTest::keyClicks(dialog.first, u"a"_s);
        QTest::keyClick(dialog.first, Qt::Key_Backspace);
    });
    QTest::newRow("a way through the fields") << Enter([](SampleDialog &dialog) {
        dialog.first->setFocus();
        for (int step = 0; step < 20; ++step)
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    });
    QTest::newRow("pressed button") << Enter([](SampleDialog &dialog) {
        dialog.pick->setCheckable(true);
        dialog.pick->click();
    });
    QTest::newRow("what follows a selection") << Enter([](SampleDialog &dialog) { dialog.followed->setText(u"a"_s); });
}

void TestKDialog::onlyWhatWasEnteredIsAskedAbout()
{
    QFETCH(Enter, enter);
    SampleDialog dialog;
    showActive(dialog);
    enter(dialog);
    QTest::keyClick(dialog.first, Qt::Key_Escape);
    QCOMPARE(asked, 0);
    QVERIFY(!dialog.isVisible());
}

void TestKDialog::keptWorkKeepsTheWindow()
{
    mayDrop = false;
    SampleDialog dialog;
    showActive(dialog);
    QTest::keyClicks(dialog.first, u"a"_s);
    QTest::keyClick(dialog.first, Qt::Key_Escape);
    dialog.close();
    QCOMPARE(asked, 2);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.first->text(), u"a"_s);
    QCOMPARE(dialog.cancelCount, 0);
    mayDrop = true;
    dialog.close();
    QVERIFY(!dialog.isVisible());
}

void TestKDialog::cancelButtonIsTheAnswer()
{
    SampleDialog dialog;
    showActive(dialog);
    QTest::keyClicks(dialog.first, u"a"_s);
    dialog.button(QDialogButtonBox::RejectRole)->click();
    QCOMPARE(asked, 0);
    QCOMPARE(dialog.cancelCount, 1);
    QVERIFY(!dialog.isVisible());
}

void TestKDialog::savedWorkIsNotAskedAbout()
{
    SampleDialog dialog;
    showActive(dialog);
    QTest::keyClicks(dialog.first, u"a"_s);
    dialog.accept();
    QCOMPARE(asked, 0);
    // Opened again, it begins with what it holds.
    showActive(dialog);
    dialog.close();
    QCOMPARE(asked, 0);
}

void TestKDialog::entryThatComesLaterCounts()
{
    SampleDialog dialog;
    showActive(dialog);
    auto *late = new QLineEdit(&dialog);
    late->setText(u"read"_s);
    dialog.entriesLoaded(&dialog);
    QVERIFY(!dialog.holdsTypedWork());
    late->setText(u"entered"_s);
    QVERIFY(dialog.holdsTypedWork());
    delete late;
    QVERIFY(!dialog.holdsTypedWork());
}

void TestKDialog::windowWithoutAnOkButtonHoldsNoWork()
{
    KDialog dialog;
    QLineEdit line(&dialog);
    showActive(dialog);
    QTest::keyClicks(&line, u"a"_s);
    dialog.close();
    QCOMPARE(asked, 0);
    QVERIFY(!dialog.isVisible());
}

// A program that ends while a window shows a message in the middle of saving.
void TestKDialog::windowThatIsSavingCannotBeClosed()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.whileSaving = [&dialog] { QVERIFY(!dialog.close()); };
    dialog.accept();
    QCOMPARE(dialog.okCount, 1);
    QCOMPARE(dialog.cancelCount, 0);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

// A second press that comes while the first one is at work, or after it has closed the window.
void TestKDialog::secondPressIsTheSamePress()
{
    SampleDialog dialog;
    showActive(dialog);
    dialog.whileSaving = [&dialog] { dialog.button(QDialogButtonBox::AcceptRole)->click(); };
    dialog.agrees = false;
    dialog.accept();
    QCOMPARE(dialog.okCount, 1);
    // Refused, it may be pressed again.
    dialog.agrees = true;
    dialog.accept();
    dialog.accept();
    QCOMPARE(dialog.okCount, 2);
    // Shown again, the window works again.
    showActive(dialog);
    dialog.accept();
    QCOMPARE(dialog.okCount, 3);
}

void TestKDialog::modalWindowsCloseFromTheTop()
{
    SampleDialog below;
    SampleDialog above;
    for (SampleDialog *dialog : {&below, &above}) {
        dialog->setModal(true);
        showActive(*dialog);
    }
    below.first->setText(u"a"_s);
    mayDrop = false;
    QVERIFY(!closeModalWindows());
    QVERIFY(!above.isVisible());
    QVERIFY(below.isVisible());
    mayDrop = true;
    QVERIFY(closeModalWindows());
    QVERIFY(!below.isVisible());
    QCOMPARE(asked, 2);
}

void TestKDialog::sizeIsRemembered()
{
    const QSize size(460, 560);
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
    QCOMPARE(dialog.frameGeometry().width(), dialog.screen()->availableSize().width());
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
