// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgAddMessageText.h"
#include "suite/crm/messages/CDlgMessageTexts.h"

#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/crm/messages/MessageOffice.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/Hand.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// The office's texts of messages: what is refused, two desks, the bin, the list and the editor.
class TestMessageTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.reset(); }
    void suppliedTextStandsBehindTheOffices();
    void refused_data();
    void refused();
    void nameOfAnotherKindIsFree();
    void hostileTextsAreKept();
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void brokenAtCommit_data();
    void brokenAtCommit();
    void deletedComesBackUnderAFreeName();
    void historySaysWhatItSaid();
    void listAddsAndShows();
    void commandsNeedTheirRights();
    void rightTakenAwayMeanwhileIsTold();
    void fieldIsPutAtTheCursor();
    void previewIsOfARealRecord();
    void unknownFieldIsToldAndMarked();
    void backToTheSuppliedText();
    void otherKindBringsItsOwnFieldsAndText();

private:
    static QString settled(const QString &kind, const QString &name, const QString &text)
    {
        CTblMessageTexts row;
        row.m_sKind = kind;
        row.m_sName = name;
        row.m_sText = text;
        try {
            row.settle(0);
        } catch (const FieldRefused &refused) {
            return refused.column();
        }
        return {};
    }
    MessageOffice m_office;
};

void TestMessageTexts::suppliedTextStandsBehindTheOffices()
{
    m_office.addText(u"ب"_s, u"دو"_s);
    m_office.addText(u"الف"_s, u"یک"_s);
    QStringList names;
    for (const CTblMessageTexts::Entry &entry : CTblMessageTexts::entries(u"test"_s))
        names.append(entry.name + u'=' + entry.text);
    QCOMPARE(names, QStringList({u"الف=یک"_s, u"ب=دو"_s, CTblMessageTexts::suppliedName() + u'=' + MessageOffice::kind().suppliedText}));
}

void TestMessageTexts::refused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("column");
    QTest::newRow("good") << u"test"_s << u"نرم"_s << u"{نام} {نمايشگاه}"_s << QString();
    QTest::newRow("no kind") << u"nothing"_s << u"نرم"_s << u"x"_s << u"sKind"_s;
    QTest::newRow("no name") << u"test"_s << QString() << u"x"_s << u"sName"_s;
    QTest::newRow("an emoji in the name") << u"test"_s << u"\U0001F697"_s << u"x"_s << u"sName"_s;
    QTest::newRow("the name of another") << u"test"_s << u"موجود"_s << u"x"_s << u"sName"_s;
    QTest::newRow("the name of the supplied one") << u"test"_s << CTblMessageTexts::suppliedName() << u"x"_s << u"sName"_s;
    QTest::newRow("no text") << u"test"_s << u"نرم"_s << u" \n"_s << u"sText"_s;
    QTest::newRow("too long") << u"test"_s << u"نرم"_s << u"x"_s.repeated(CTblMessageTexts::longestText + 1) << u"sText"_s;
    QTest::newRow("unknown field") << u"test"_s << u"نرم"_s << u"{نان}"_s << u"sText"_s;
}

void TestMessageTexts::refused()
{
    m_office.addText(u"موجود"_s, u"یک"_s);
    QFETCH(QString, kind);
    QFETCH(QString, name);
    QFETCH(QString, text);
    QTEST(settled(kind, name, text), "column");
}

void TestMessageTexts::nameOfAnotherKindIsFree()
{
    const int key = m_office.addText(u"موجود"_s, u"یک"_s);
    m_office.office.db.run(u"UPDATE MessageTexts SET sKind='other' WHERE iID=%1"_s.arg(key));
    QCOMPARE(settled(u"test"_s, u"موجود"_s, u"دو"_s), QString());
}

void TestMessageTexts::hostileTextsAreKept()
{
    for (const QString &text : hostileTexts()) {
        if (text.contains(u'{'))
            continue; // a field that is unknown
        CDlgAddMessageText window(0);
        window.name()->setText(u"نام"_s);
        window.text()->setText(u"a"_s + text + u"z\U0001F697"_s);
        const QString typed = window.text()->text();
        window.show();
        window.accept();
        QCOMPARE(window.result(), int(QDialog::Accepted));
        CTblMessageTexts stored;
        QVERIFY(stored.IsRecordExist(u"iID"_s, window.key()));
        QCOMPARE(stored.m_sText, typed);
        m_office.office.db.run(u"DELETE FROM MessageTexts"_s);
    }
}

void TestMessageTexts::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    int key = 0;
    const TwoDesks desks{
        .reset = [&] { key = m_office.addText(u"نخست"_s, u"یک"_s); },
        .open = [&]() -> std::unique_ptr<KDialog> { return std::make_unique<CDlgAddMessageText>(key); },
        .enter = [](KDialog &window) { static_cast<CDlgAddMessageText &>(window).text()->setText(u"من {نام}"_s); },
        .changeOther = [&] { m_office.office.db.run(u"UPDATE MessageTexts SET sName='دیگر'"_s); },
        .changeSame = [&] { m_office.office.db.run(u"UPDATE MessageTexts SET sText='او'"_s); },
        .remove = [&] { m_office.office.db.run(u"DELETE FROM MessageTexts"_s); },
        .stored = [&] { return m_office.value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',sKind,sName,sText)) FROM MessageTexts"_s); },
        .merged = u"test|دیگر|من {نام}"_s,
        .theirs = u"test|نخست|او"_s,
        .mine = u"test|نخست|من {نام}"_s,
        .gone = {},
        .renewed = u"test|نخست|من {نام}"_s};
    desks.check(what);
}

void TestMessageTexts::brokenAtCommit_data()
{
    QTest::addColumn<FaultProxy::Fault>("fault");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("before the server had it") << FaultProxy::Fault::CutBeforeCommit << false;
    QTest::newRow("after the server had it") << FaultProxy::Fault::CutAfterCommit << true;
}

// Saved or not, the window knows which; what was typed stays where it was not.
void TestMessageTexts::brokenAtCommit()
{
    QFETCH(FaultProxy::Fault, fault);
    QFETCH(bool, isSaved);
    CDlgAddMessageText window(0);
    window.name()->setText(u"نو"_s);
    window.show();
    FaultProxy proxy(m_office.office.db.settings());
    KConnection::configure(0, proxy.settings());
    proxy.failAtCommit(fault);
    try {
        window.accept();
    } catch (const CMySQLException &) {
        QVERIFY(!isSaved);
    }
    KConnection::configure(0, m_office.office.db.settings());
    QCOMPARE(window.result() == QDialog::Accepted, isSaved);
    QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM MessageTexts"_s), isSaved ? u"1"_s : u"0"_s);
    QCOMPARE(window.name()->text(), u"نو"_s);
    if (!isSaved) {
        window.accept();
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM MessageTexts"_s), u"1"_s);
    }
}

void TestMessageTexts::deletedComesBackUnderAFreeName()
{
    const int key = m_office.addText(u"نرم"_s, u"متن \U0001F697 {نام}"_s);
    CTblMessageTexts asked;
    QVERIFY(asked.IsRecordExist(u"iID"_s, key));
    RowDeleting::run(asked);
    QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM MessageTexts"_s), u"0"_s);
    m_office.addText(u"نرم"_s, u"دیگری"_s);
    const std::optional<Bin::Entry> entry = Bin::entryOf(u"MessageTexts"_s, key);
    QVERIFY(entry);
    const BinRestoring::Restored restored = BinRestoring::run(*entry);
    QVERIFY2(restored.message.contains(u"نرم 2"_s), qPrintable(restored.message));
    QCOMPARE(m_office.value(u"SELECT CONCAT(sName,'|',sText) FROM MessageTexts WHERE iID=%1"_s.arg(restored.key)), u"نرم 2|متن \U0001F697 {نام}"_s);
}

void TestMessageTexts::historySaysWhatItSaid()
{
    const int key = m_office.addText(u"نرم"_s, u"پیشین"_s);
    CDlgAddMessageText window(key);
    window.show();
    window.text()->setText(u"پسین"_s);
    window.accept();
    const QString values = m_office.value(u"SELECT sValues FROM Changes WHERE sTable='MessageTexts' AND iRecordID=%1 AND iKind=1 ORDER BY iID DESC LIMIT 1"_s.arg(key));
    QVERIFY2(values.contains(u"پیشین"_s) && values.contains(u"پسین"_s), qPrintable(values));
}

void TestMessageTexts::listAddsAndShows()
{
    CDlgMessageTexts page;
    page.resize(1100, 700);
    page.show();
    QCOMPARE(page.list()->count(), 0);
    Hand::inNextWindow([](QDialog *dialog) {
        auto *editor = qobject_cast<CDlgAddMessageText *>(dialog);
        QVERIFY(editor);
        QCOMPARE(editor->text()->text(), MessageOffice::kind().suppliedText);
        Hand::type(u"نرم"_s);
        editor->text()->setText(u"سلام\n{نام}"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    QVERIFY(page.runCommand(u"new"));
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->cellText(0, u"kind"), u"یادآوری"_s);
    QCOMPARE(page.list()->cellText(0, u"name"), u"نرم"_s);
    QCOMPARE(page.list()->cellText(0, u"text"), u"سلام {نام}"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QVERIFY(page.runCommand(u"delete"));
    QCOMPARE(page.list()->count(), 0);
    QVERIFY(Bin::entryOf(u"MessageTexts"_s, m_office.value(u"SELECT iRecordID FROM Bin"_s).toInt()));
}

void TestMessageTexts::commandsNeedTheirRights()
{
    m_office.addText(u"نرم"_s, u"یک"_s);
    m_office.office.loginClerk();
    KSecurity::setRights(m_office.office.clerk(), u"MessageTexts"_s, KSecurity::Access | KSecurity::Read);
    KSecurity::forgetRights();
    CDlgMessageTexts page;
    page.show();
    page.list()->selectRow(0);
    for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s}) {
        g_pDlgWarning->takeShown();
        page.runCommand(command);
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM MessageTexts"_s), u"1"_s);
        QVERIFY(!QApplication::activeModalWidget());
    }
}

void TestMessageTexts::rightTakenAwayMeanwhileIsTold()
{
    m_office.office.loginClerk();
    KSecurity::setRights(m_office.office.clerk(), u"MessageTexts"_s, KSecurity::allRights);
    KSecurity::forgetRights();
    CDlgAddMessageText window(0);
    window.show();
    window.name()->setText(u"نرم"_s);
    KSecurity::setRights(m_office.office.clerk(), u"MessageTexts"_s, KSecurity::Read);
    g_pDlgWarning->takeShown();
    window.accept();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"MessageTexts"_s, KSecurity::Write)});
    QVERIFY(window.isVisible());
    QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM MessageTexts"_s), u"0"_s);
}

void TestMessageTexts::fieldIsPutAtTheCursor()
{
    CDlgAddMessageText window(0);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.text()->setText(u"سلام  خوبی"_s);
    QTextCursor cursor = window.text()->textCursor();
    cursor.setPosition(5);
    window.text()->setTextCursor(cursor);
    auto *button = Hand::named<QPushButton>(&window, u"درج نام"_s);
    QVERIFY(button);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(window.text()->text(), u"سلام {نام} خوبی"_s);
    QVERIFY(window.text()->hasFocus());
    QCOMPARE(window.fieldButtons().size(), MessageOffice::kind().fields.size());
}

void TestMessageTexts::previewIsOfARealRecord()
{
    CDlgAddMessageText window(0);
    window.show();
    QCOMPARE(window.previewText(), MessageFilling::withPersianDigits(u"آقای علی رضایی، با سلام از نمایشگاه آریا کد %1"_s.arg(m_office.ali)));
    m_office.office.db.run(u"DELETE FROM Persons"_s);
    CDlgAddMessageText none(0);
    QCOMPARE(none.previewText(), MessageOffice::kind().suppliedText);
}

void TestMessageTexts::unknownFieldIsToldAndMarked()
{
    CDlgAddMessageText window(0);
    window.show();
    window.name()->setText(u"نرم"_s);
    window.text()->setText(u"سلام\n{نان} {نام}"_s);
    QVERIFY2(FieldNote::of(window.text())->text().contains(u"{نان}"_s), qPrintable(FieldNote::of(window.text())->text()));
    g_pDlgWarning->takeShown();
    window.accept();
    const QStringList told = g_pDlgWarning->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"«{نان}» در سطر 2"_s), qPrintable(told.constFirst()));
    QVERIFY(window.isVisible());
    QCOMPARE(window.text()->textCursor().selectedText(), u"{نان}"_s);
    window.text()->setText(u"سلام"_s);
    QVERIFY(!FieldNote::of(window.text())->text().contains(u"{نان}"_s));
}

void TestMessageTexts::backToTheSuppliedText()
{
    CDlgAddMessageText window(m_office.addText(u"نرم"_s, u"یک"_s));
    window.show();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    window.takeSupplied();
    QCOMPARE(window.text()->text(), u"یک"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    window.takeSupplied();
    QCOMPARE(window.text()->text(), MessageOffice::kind().suppliedText);
    window.accept();
    QCOMPARE(m_office.value(u"SELECT sText FROM MessageTexts"_s), MessageOffice::kind().suppliedText);
}

void TestMessageTexts::otherKindBringsItsOwnFieldsAndText()
{
    MessageKinds::enter({.id = u"other"_s,
                         .title = u"دیگر"_s,
                         .forms = {},
                         .fields = {{u"بهانه"_s, {}}},
                         .suppliedText = u"{بهانه}"_s,
                         .read = [](const QList<MessageAbout> &, int) { return QList<PersonMessage>(); },
                         .sample = [](int) { return MessageAbout(); }});
    {
        CDlgAddMessageText window(0);
        window.show();
        window.kinds()->setCurrentIndex(1);
        QCOMPARE(window.text()->text(), u"{بهانه}"_s);
        QCOMPARE(window.fieldButtons().constFirst()->text(), u"بهانه"_s);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.text()->setFocus();
        Hand::press(Qt::Key_Tab);
        QCOMPARE(Hand::focus(), static_cast<QWidget *>(window.fieldButtons().constFirst()));
        // What somebody wrote stays, and what is no field any more is told.
        window.text()->setText(u"من {بهانه}"_s);
        window.kinds()->setCurrentIndex(0);
        QCOMPARE(window.text()->text(), u"من {بهانه}"_s);
        QVERIFY(FieldNote::of(window.text())->text().contains(u"{بهانه}"_s));
    }
    MessageKinds::remove(u"other"_s);
}

static const RegisteredTest<TestMessageTexts, QApplication> registeredMessageTexts;

#include "TestMessageTexts.moc"
