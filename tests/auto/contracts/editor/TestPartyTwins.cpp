// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/utility/entries/FieldNote.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// A party who is typed by hand and stands in the list of persons already.
class TestPartyTwins : public ContractEditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        CrmSearch::enter();
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init() { begin(); }

    void knownPersonIsOfferedAndTakenByOneKey()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        party->setKind(PartyKind::Other);
        KEdit *code = edit(*dialog, "sNationalId2");
        code->setText(u"۰۰۱۲۳۴۵۶۷۹"_s);
        Q_EMIT code->editingFinished();
        QVERIFY2(FieldNote::of(code)->text().contains(u"سارا کریمی"_s), qPrintable(FieldNote::of(code)->text()));
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        code->setFocus();
        QTest::keyClick(code, Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(party->personField()->personID(), m_seller);
        QCOMPARE(party->kind(), PartyKind::Ordinary);
    }

    void nobodyIsOfferedForAnotherCodeOrAPersonOfTheList()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        KEdit *code = edit(*dialog, "sNationalId2");
        const auto noted = [code](const QString &text) {
            code->setText(text);
            Q_EMIT code->editingFinished();
            return FieldNote::of(code)->text().contains(u"Ctrl+T"_s);
        };
        party->setKind(PartyKind::Other);
        QVERIFY(!noted(u"0012345687"_s));
        QVERIFY(noted(u"0012345679"_s));
        party->setKind(PartyKind::Ordinary);
        QVERIFY(!noted(u"0012345679"_s));
    }

    void personIsOfferedToWhoMayChooseOne()
    {
        const int user = m_office->logInAs(u"clerk"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        party->setKind(PartyKind::Other);
        KEdit *code = edit(*dialog, "sNationalId2");
        const auto note = [code] {
            code->setText(u"0012345679"_s);
            Q_EMIT code->editingFinished();
            return FieldNote::of(code)->text();
        };
        QVERIFY2(!note().contains(u"سارا کریمی"_s), qPrintable(note()));
        QTest::keyClick(code, Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(party->personField()->personID(), 0);
        KSecurity::setRights(user, u"Persons"_s, KSecurity::Access);
        KSecurity::forgetRights();
        QVERIFY2(note().contains(u"سارا کریمی"_s), qPrintable(note()));
    }
};

static const RegisteredTest<TestPartyTwins, KApplication> registeredPartyTwins;
#include "TestPartyTwins.moc"
