// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/settings/ContractSettings.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "tests/auto/contracts/MatterPageFilled.h"
#include "tests/office/TestOffice.h"
#include "tests/support/Day.h"

#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// What the tests of the contract editor have in common: an office with a seller, a buyer and the tiers of commission, and the
// editor over it.
class ContractEditorTest : public QObject
{
public:
    using Dialog = CDlgAddAutomobilContract;
    using Mode = ContractEditorMode;

protected:
    // An empty office in which the two persons are known; the seller's record is filled by what is passed.
    void begin(const std::function<void(CTblPersons &)> &seller = everyField)
    {
        m_office->clear();
        m_seller = m_office->addPerson(u"سارا"_s, u"کریمی"_s, seller);
        m_buyer = m_office->addPerson(u"رضا"_s, u"احمدی"_s,
                                      [](CTblPersons &person) { person.m_dPercentDiscount = 10; });
        m_office->setFiscalYearOpening(QDate(2020, 1, 1));
        ContractSettings settings;
        settings.taxPercent = 6;
        settings.dutyPercent = 3;
        settings.tiers.ceilings = {1'000'000, 5'000'000, 0};
        settings.tiers.percents = {2, 1, 0};
        settings.save();
    }

    static void everyField(CTblPersons &person)
    {
        person.m_sFatherName = u"حسن"_s;
        person.m_sNationalCode = u"0012345679"_s;
        person.m_sMobile = u"09121234567"_s;
        person.m_sTel = u"02188776655"_s;
        person.m_sAddress = u"تهران، خیابان آزادی"_s;
        person.m_sIdentityNum = u"1234"_s;
        person.m_sIdentityCity = u"تهران"_s;
        person.m_dateBirth = day(1985, 3, 21);
    }

    QString value(const QString &statement) { return m_office->database().value(statement); }
    // Of the only contract.
    int key() { return value(u"SELECT iID FROM AutomobilContracts"_s).toInt(); }

    // The editor as it is shown; null where the contract cannot be loaded.
    static std::unique_ptr<Dialog> opened(int key, Mode mode = Mode::Edit)
    {
        auto dialog = std::make_unique<Dialog>(key, mode);
        if (!dialog->load())
            return nullptr;
        dialog->show();
        return dialog;
    }

    // A new contract with both persons and an amount, ready to be saved.
    std::unique_ptr<Dialog> filledNew()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->basePage()->firstParty()->takePerson(m_seller);
        dialog->basePage()->secondParty()->takePerson(m_buyer);
        type(*dialog, "dAmount", "1000000");
        fillMatterPage(*dialog->matterPage());
        return dialog;
    }

    static QString column(const char *name) { return QString::fromLatin1(name); }

    // Of the first page.
    static KEdit *edit(const Dialog &dialog, const char *name) { return dialog.basePage()->form()->edit(column(name)); }
    static double shown(const Dialog &dialog, const char *name) { return edit(dialog, name)->number(); }

    // Types a number as a person would, so that what follows from it follows.
    static void type(Dialog &dialog, const char *name, const char *text)
    {
        edit(dialog, name)->selectAll();
        QTest::keyClicks(edit(dialog, name), QString::fromLatin1(text));
    }

    std::unique_ptr<TestOffice> m_office;
    int m_seller = 0;
    int m_buyer = 0;
};
