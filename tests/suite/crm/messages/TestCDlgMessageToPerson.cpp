// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgMessageToPerson.h"

#include "suite/crm/messages/MessageLink.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KTextArea.h"
#include "tests/suite/crm/messages/MessageOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

// A message is filled, changed, copied, passed on and noted; for one person or several.
class TestCDlgMessageToPerson : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void takeLink(const QUrl &link) { m_links.append(link); }

private Q_SLOTS:
    void init();
    void cleanup();
    void textIsFilledForThePerson();
    void copiedByAnyHand_data();
    void copiedByAnyHand();
    void markedPartIsCopiedAlone();
    void noteIsOfferedAfterwardsAndWrittenOnce();
    void brokenNoteIsWrittenOnce_data();
    void brokenNoteIsWrittenOnce();
    void refusedNoteIsTold();
    void whoMayNotIsOfferedNoNote();
    void passedToTheMessenger();
    void withoutAMessengerItIsTold();
    void numberIsChosenAndMissingOneTold();
    void whoMayNotReadPersonsSeesNoNumber();
    void severalPersonsKeepWhatWasTyped();
    void otherTextIsAskedForAndRemembered();
    void goneRecordsAreTold();
    void typedTextIsNotDroppedSilently();
    void rightOfTheKindIsAsked();
    void links_data();
    void links();

private:
    QList<PersonMessage> messages(const QList<int> &keys)
    {
        QList<MessageAbout> about;
        for (const int key : keys)
            about.append(MessageAbout{key});
        return MessageKinds::read(MessageOffice::kind(), about);
    }
    std::unique_ptr<CDlgMessageToPerson> open(const QList<PersonMessage> &list)
    {
        auto window = std::make_unique<CDlgMessageToPerson>(MessageOffice::kind(), list);
        window->show();
        return window;
    }
    std::unique_ptr<CDlgMessageToPerson> openFor(const QList<int> &keys) { return open(messages(keys)); }
    static QPushButton *button(CDlgMessageToPerson &window, const QString &caption)
    {
        auto *found = Hand::named<QPushButton>(&window, caption);
        if (!found)
            qFatal("no button");
        return found;
    }
    static QString label(CDlgMessageToPerson &window, const QString &name) { return window.findChild<QLabel *>(name)->text(); }
    // The desktop's answer to who opens such a link.
    void setMessenger(const QString &answer)
    {
        QFile script(m_bin.filePath(u"xdg-mime"_s));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\necho \"" + answer.toUtf8() + "\"\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QString textFor(const QString &name, int key) const
    {
        return MessageFilling::withPersianDigits(u"%1، با سلام از نمایشگاه آریا کد %2"_s.arg(name).arg(key));
    }

    MessageOffice m_office;
    QTemporaryDir m_bin;
    QByteArray m_path;
    QList<QUrl> m_links;
};

void TestCDlgMessageToPerson::init()
{
    m_office.reset();
    m_links.clear();
    QApplication::clipboard()->setText(u"before"_s);
    m_path = qgetenv("PATH");
    qputenv("PATH", m_bin.path().toLocal8Bit() + ':' + m_path);
    setMessenger(u"phone.desktop"_s);
    QDesktopServices::setUrlHandler(u"sms"_s, this, "takeLink");
}

void TestCDlgMessageToPerson::cleanup()
{
    qputenv("PATH", m_path);
    QDesktopServices::unsetUrlHandler(u"sms"_s);
}

void TestCDlgMessageToPerson::textIsFilledForThePerson()
{
    const auto window = openFor({m_office.mina});
    QCOMPARE(window->text()->text(), textFor(u"خانم مینا کریمی"_s, m_office.mina));
    QVERIFY(label(*window, u"person"_s).contains(u"مینا کریمی"_s));
    QVERIFY(!button(*window, u"کپی"_s)->isHidden());
    QVERIFY(!Hand::named<QPushButton>(window.get(), u"بعدی"_s));
    const QString size = FieldNote::of(window->text())->text();
    QVERIFY2(size.startsWith(u"%1 حرف، 1 پیامک"_s.arg(window->text()->text().size())), qPrintable(size));
}

void TestCDlgMessageToPerson::copiedByAnyHand_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"button", "Ctrl+C", "Ctrl+C on a button", "Ctrl+Enter"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

void TestCDlgMessageToPerson::copiedByAnyHand()
{
    QFETCH(QString, how);
    const auto window = openFor({m_office.ali});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    window->text()->setText(u"سلام \U0001F697\nدو"_s);
    window->text()->setFocus();
    if (how == u"button") {
        button(*window, u"کپی"_s)->click();
    } else if (how == u"Ctrl+Enter") {
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    } else {
        if (how != u"Ctrl+C")
            button(*window, u"کپی"_s)->setFocus();
        Hand::press(Qt::Key_C, Qt::ControlModifier);
    }
    QCOMPARE(QApplication::clipboard()->text(), u"سلام \U0001F697\nدو"_s);
    QVERIFY(window->isVisible());
    QVERIFY(window->statusText().startsWith(u"پیام کپی شد"_s));
}

void TestCDlgMessageToPerson::markedPartIsCopiedAlone()
{
    const auto window = openFor({m_office.ali});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    window->text()->setText(u"یک دو سه"_s);
    QTextCursor cursor = window->text()->textCursor();
    cursor.setPosition(3);
    cursor.setPosition(5, QTextCursor::KeepAnchor);
    window->text()->setTextCursor(cursor);
    window->text()->setFocus();
    Hand::press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"دو"_s);
    QCOMPARE(window->statusText(), QString());
}

void TestCDlgMessageToPerson::noteIsOfferedAfterwardsAndWrittenOnce()
{
    const auto window = openFor({m_office.ali});
    QPushButton *note = button(*window, u"ثبت پیگیری"_s);
    QVERIFY(!note->isEnabled());
    window->noteFollowUp();
    QCOMPARE(m_office.notes, QStringList());
    window->copy();
    QVERIFY(note->isEnabled());
    note->click();
    note->click();
    window->noteFollowUp();
    QCOMPARE(m_office.notes, QStringList{u"پیام «یادآوری»: "_s + textFor(u"آقای علی رضایی"_s, m_office.ali)});
    QVERIFY(!note->isEnabled());
    window->copy();
    QVERIFY(!note->isEnabled());
    QVERIFY(!window->statusText().contains(u"F4"_s));
}

void TestCDlgMessageToPerson::brokenNoteIsWrittenOnce_data()
{
    QTest::addColumn<bool>("wasSaved");
    QTest::newRow("it was saved all the same") << true;
    QTest::newRow("it was not saved") << false;
}

// The connection breaks while the note is saved; the second press finds out what became of the first one.
void TestCDlgMessageToPerson::brokenNoteIsWrittenOnce()
{
    QFETCH(bool, wasSaved);
    QList<PersonMessage> list = messages({m_office.ali});
    int calls = 0;
    int written = 0;
    list[0].note = [&](const QString &) {
        ++calls;
        if (calls == 1) {
            written += wasSaved ? 1 : 0;
            throw CMySQLException(CMySQLException::Category::OutcomeUnknown, 2013, QStringLiteral("lost"));
        }
        if (wasSaved)
            throw CMySQLException(CMySQLException::Category::SavedAfterAll, 0, QStringLiteral("saved"));
        ++written;
    };
    const auto window = open(list);
    window->copy();
    window->noteFollowUp();
    QVERIFY(button(*window, u"ثبت پیگیری"_s)->isEnabled());
    window->noteFollowUp();
    window->noteFollowUp();
    QCOMPARE(calls, 2);
    QCOMPARE(written, 1);
    QVERIFY(window->statusText().contains(u"نوشته شد"_s));
}

void TestCDlgMessageToPerson::refusedNoteIsTold()
{
    const auto window = openFor({m_office.ali});
    window->copy();
    m_office.refusal = u"دیگر نیست"_s;
    window->noteFollowUp();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"دیگر نیست"_s});
    m_office.refusal.clear();
    window->noteFollowUp();
    QCOMPARE(m_office.notes.size(), 1);
}

void TestCDlgMessageToPerson::whoMayNotIsOfferedNoNote()
{
    QList<PersonMessage> list = messages({m_office.ali});
    list[0].note = {};
    const auto window = open(list);
    window->copy();
    QVERIFY(!Hand::named<QPushButton>(window.get(), u"ثبت پیگیری"_s));
    QCOMPARE(window->statusText(), u"پیام کپی شد."_s);
    window->noteFollowUp();
}

void TestCDlgMessageToPerson::passedToTheMessenger()
{
    const auto window = openFor({m_office.ali});
    window->text()->setText(u"50% & ?#\n+\U0001F697 سلام"_s);
    button(*window, u"باز کردن در پیام‌رسان"_s)->click();
    QCOMPARE(m_links.size(), 1);
    QCOMPARE(m_links.constFirst().toEncoded(), "sms:+989121234567?body=" + QUrl::toPercentEncoding(window->text()->text()));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(button(*window, u"ثبت پیگیری"_s)->isEnabled());
    QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
}

void TestCDlgMessageToPerson::withoutAMessengerItIsTold()
{
    setMessenger({});
    const auto window = openFor({m_office.ali});
    window->openMessenger();
    QCOMPARE(m_links.size(), 0);
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY(told.constFirst().contains(u"کپی نمایید"_s));
    QVERIFY(!button(*window, u"ثبت پیگیری"_s)->isEnabled());
}

void TestCDlgMessageToPerson::numberIsChosenAndMissingOneTold()
{
    const auto window = openFor({m_office.ali, m_office.mina});
    QCOMPARE(window->numbers()->count(), 2);
    QCOMPARE(window->numbers()->itemText(0), u"09121234567"_s);
    window->numbers()->setCurrentIndex(1);
    Q_EMIT window->numbers()->activated(1);
    window->openMessenger();
    QVERIFY(m_links.constLast().toString().startsWith(u"sms:+989351112233"_s));
    window->showNext();
    QCOMPARE(window->numbers()->count(), 0);
    QVERIFY(!FieldNote::of(window->numbers())->text().isEmpty());
    QVERIFY(!button(*window, u"باز کردن در پیام‌رسان"_s)->isEnabled());
    QVERIFY(button(*window, u"کپی"_s)->isEnabled());
    window->openMessenger();
    QCOMPARE(m_links.size(), 1);
    window->showPrevious();
    QCOMPARE(window->numbers()->currentText(), u"09351112233"_s);
}

void TestCDlgMessageToPerson::whoMayNotReadPersonsSeesNoNumber()
{
    m_office.office.loginClerk();
    KSecurity::setRights(m_office.office.clerk(), u"Services"_s, KSecurity::Access | KSecurity::Read);
    const QList<PersonMessage> without = messages({m_office.ali});
    QCOMPARE(without.size(), 1);
    QCOMPARE(without.constFirst().numbers, QStringList());
    QCOMPARE(without.constFirst().person, u"علی رضایی"_s);
    KSecurity::setRights(m_office.office.clerk(), u"Persons"_s, KSecurity::Read);
    QCOMPARE(messages({m_office.ali}).constFirst().numbers.size(), 2);
}

void TestCDlgMessageToPerson::severalPersonsKeepWhatWasTyped()
{
    const auto window = openFor({m_office.ali, m_office.mina});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QCOMPARE(label(*window, u"place"_s), u"1 از 2"_s);
    QVERIFY(!button(*window, u"قبلی"_s)->isEnabled());
    window->text()->setText(u"برای علی"_s);
    window->copy();
    window->noteFollowUp();
    window->text()->setFocus();
    Hand::press(Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(label(*window, u"place"_s), u"2 از 2"_s);
    QCOMPARE(window->text()->text(), textFor(u"خانم مینا کریمی"_s, m_office.mina));
    QVERIFY(!button(*window, u"بعدی"_s)->isEnabled());
    QVERIFY(!button(*window, u"ثبت پیگیری"_s)->isEnabled());
    window->copy();
    QVERIFY(button(*window, u"ثبت پیگیری"_s)->isEnabled());
    Hand::press(Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(window->text()->text(), u"برای علی"_s);
    QVERIFY(!button(*window, u"ثبت پیگیری"_s)->isEnabled());
    window->showNext();
    window->noteFollowUp();
    QCOMPARE(m_office.notes.size(), 2);
}

void TestCDlgMessageToPerson::otherTextIsAskedForAndRemembered()
{
    m_office.addText(u"الف"_s, u"یک {نام}"_s);
    m_office.addText(u"ب"_s, u"دو {نام}"_s);
    const auto choose = [](CDlgMessageToPerson &window, int index) {
        window.texts()->setCurrentIndex(index);
        Q_EMIT window.texts()->activated(index);
    };
    auto window = openFor({m_office.ali, m_office.mina});
    QCOMPARE(window->text()->text(), u"یک آقای علی رضایی"_s);
    choose(*window, 1);
    QCOMPARE(window->text()->text(), u"دو آقای علی رضایی"_s);
    QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    window->text()->setText(u"خودم"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    choose(*window, 0);
    QCOMPARE(window->text()->text(), u"خودم"_s);
    QCOMPARE(window->texts()->currentIndex(), 1);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    choose(*window, 0);
    QCOMPARE(window->text()->text(), u"یک آقای علی رضایی"_s);
    choose(*window, 1);
    window->showNext();
    QCOMPARE(window->text()->text(), u"دو خانم مینا کریمی"_s);
    QCOMPARE(openFor({m_office.ali})->text()->text(), u"دو آقای علی رضایی"_s);
    // Another desk deleted the one that was chosen.
    m_office.office.db.run(u"DELETE FROM MessageTexts WHERE sName='ب'"_s);
    QCOMPARE(openFor({m_office.ali})->text()->text(), u"یک آقای علی رضایی"_s);
}

void TestCDlgMessageToPerson::goneRecordsAreTold()
{
    CDlgMessageToPerson::run(u"test"_s, {MessageAbout{999999}}, nullptr);
    QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"آنچه پیام درباره آن است دیگر نیست."_s});
    bool opened = false;
    Hand::inNextWindow([&opened, this](QDialog *dialog) {
        auto *window = qobject_cast<CDlgMessageToPerson *>(dialog);
        QVERIFY(window);
        opened = window->text()->text() == textFor(u"خانم مینا کریمی"_s, m_office.mina);
    });
    CDlgMessageToPerson::run(u"test"_s, {MessageAbout{999999}, MessageAbout{m_office.mina}}, nullptr);
    QVERIFY(opened);
    QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"1 مورد دیگر نیست و پیامی ندارد."_s});
}

void TestCDlgMessageToPerson::typedTextIsNotDroppedSilently()
{
    const auto window = openFor({m_office.ali});
    window->text()->setText(u"دیگر"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    window->reject();
    QVERIFY(window->isVisible());
    window->copy();
    g_pDlgYesNo->takeShown();
    window->reject();
    QVERIFY(!window->isVisible());
    QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
}

void TestCDlgMessageToPerson::rightOfTheKindIsAsked()
{
    m_office.office.loginClerk();
    g_pDlgWarning->takeShown();
    CDlgMessageToPerson::run(u"test"_s, {MessageAbout{m_office.ali}}, nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Services"_s, KSecurity::Read)});
}

void TestCDlgMessageToPerson::links_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("start");
    QTest::newRow("Persian digits") << u"۰۹۱۲۱۲۳۴۵۶۷"_s << u"sms:+989121234567?body="_s;
    QTest::newRow("with the country") << u"0098 912 123 4567"_s << u"sms:+989121234567?body="_s;
}

void TestCDlgMessageToPerson::links()
{
    QFETCH(QString, number);
    QFETCH(QString, start);
    const QString text = u"a&b=c#d?e%41 ‌\n\"<\U0001F697"_s;
    const QUrl link = MessageLink::sms(number, text);
    QVERIFY(link.isValid());
    QVERIFY(QString::fromLatin1(link.toEncoded()).startsWith(start));
    QCOMPARE(QUrl::fromPercentEncoding(link.toEncoded().mid(start.size())), text);
    QVERIFY(!link.hasFragment());
}

static const RegisteredTest<TestCDlgMessageToPerson, QApplication> registeredCDlgMessageToPerson;

#include "TestCDlgMessageToPerson.moc"
