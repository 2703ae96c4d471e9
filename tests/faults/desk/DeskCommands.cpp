// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/desk/DeskCommands.h"

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/cars/CarContracts.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "auto/db/RecordCodes.h"
#include "auto/reports/income/ComprehensiveReport.h"
#include "auto/settings/ContractSettings.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/MatterPageFilled.h"
#include "tests/faults/desk/DeskBin.h"
#include "tests/faults/desk/DeskContention.h"
#include "tests/faults/desk/DeskMoney.h"
#include "tests/support/Hand.h"
#include "tests/support/NamedWidget.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QJsonArray>
#include <QPushButton>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Then = Desk::Then;
using Words = Desk::Words;

[[noreturn]] void complain(const QString &what)
{
    Desk::complain(what);
}

int number(const Words &words, int position)
{
    return Desk::number(words, position);
}

QDialog &topWindow()
{
    if (auto *window = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
        return *window;
    complain(u"no window is open"_s);
}

CDlgAddAutomobilContract &contractEditor()
{
    if (auto *editor = qobject_cast<CDlgAddAutomobilContract *>(QApplication::activeModalWidget()))
        return *editor;
    complain(u"no contract is open"_s);
}

// The control of a column on either page.
QWidget *field(const QString &column)
{
    const CDlgAddAutomobilContract &editor = contractEditor();
    for (const KForm *form : {editor.basePage()->form(), editor.matterPage()->form()}) {
        for (const KFormField &known : form->fields()) {
            if (known.column == column)
                return form->control(column);
        }
    }
    complain(u"the editor has no "_s + column);
}

// --- Into the office ---

void logIn(int userID)
{
    if (!GetDBSetting()->Login(userID))
        complain(u"the user may not log in"_s);
    KSecurity::forgetRights();
}

Then login(Desk &, const Words &words)
{
    CTblUsers user;
    user.m_filter = "sUser=" + KSql::quoted(words.value(1));
    user.Open(true, true, true);
    if (user.IsEOF())
        complain(u"no such user"_s);
    logIn(user.m_iID);
    return Then::AnswerDone;
}

Then office(Desk &desk, const Words &words)
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    const int administrator = CTblUsers::create(words.value(1), u"secret"_s, words.value(1), true);
    logIn(administrator);
    ContractSettings settings;
    settings.taxPercent = 6;
    settings.dutyPercent = 3;
    settings.tiers.ceilings = {1'000'000'000, 0, 0};
    settings.tiers.percents = {2, 0, 0};
    settings.save();
    desk.setValue(administrator);
    return Then::AnswerDone;
}

Then person(Desk &desk, const Words &words)
{
    CTblPersons person;
    person.Open(true, false, true);
    person.AddNew();
    person.m_iCode = CTblPersons::nextCode();
    person.m_sName = words.value(1);
    person.m_sFamily = words.value(2);
    person.Update(true);
    desk.setValue(person.m_iID);
    return Then::AnswerDone;
}

// --- Editors ---

Then created(Desk &desk, const Words &)
{
    desk.setValue(CDlgAddAutomobilContract::NewContract(nullptr));
    return Then::AnswerClosed;
}

Then edited(Desk &desk, const Words &words)
{
    const int key = number(words, 2);
    bool changed = false;
    bool confirmed = false;
    if (words.value(1) == u"contract"_s)
        confirmed = CDlgAddAutomobilContract::EditContract(key, false, nullptr);
    else if (words.value(1) == u"car"_s)
        confirmed = CDlgAddAutomobilInformation::EditCar(key, false, nullptr);
    else
        confirmed = CDlgAddAutomobilDemand::EditDemand(key, changed, nullptr);
    desk.setValue(confirmed);
    return Then::AnswerClosed;
}

Then parties(Desk &, const Words &words)
{
    CDlgAddAutomobilContractBase *page = contractEditor().basePage();
    page->firstParty()->takePerson(number(words, 1));
    page->secondParty()->takePerson(number(words, 2));
    return Then::AnswerDone;
}

// --- The car of a contract ---

Then car(Desk &desk, const Words &words)
{
    desk.setValue(RecordCodes::add<CTblAutomobilInformations>([&words](CTblAutomobilInformations &added) {
        added.m_iPersonID = number(words, 1);
        added.m_dAmount = number(words, 2);
    }));
    return Then::AnswerDone;
}

Then fromCar(Desk &desk, const Words &words)
{
    desk.setValue(contractEditor().takeCar(number(words, 1)));
    return Then::AnswerDone;
}

Then parted(Desk &desk, const Words &words)
{
    const int carID = number(words, 1);
    for (const CarContracts::Entry &entry : CarContracts::ofCar(carID)) {
        if (entry.contractID == number(words, 2))
            CarContracts::unlink(carID, entry);
    }
    desk.setValue(CTblCarContracts::carOf(number(words, 2)));
    return Then::AnswerDone;
}

Then vehicle(Desk &, const Words &)
{
    fillMatterPage(*contractEditor().matterPage());
    return Then::AnswerDone;
}

Then set(Desk &, const Words &words)
{
    auto *edit = qobject_cast<KEdit *>(field(words.value(1)));
    if (!edit)
        complain(words.value(1) + u" is no line of text"_s);
    edit->selectAll();
    Hand::typeInto(*edit, words.value(2));
    return Then::AnswerDone;
}

Then get(Desk &desk, const Words &words)
{
    const auto *edit = qobject_cast<KEdit *>(field(words.value(1)));
    if (!edit)
        complain(words.value(1) + u" is no line of text"_s);
    desk.setValue(edit->text());
    return Then::AnswerDone;
}

// As long as the window stays, the answer is due here; closed, it is that of the command that opened it.
Then stillOpen(Desk &desk, const QPointer<QDialog> &window)
{
    if (!window || !window->isVisible())
        return Then::Answered;
    if (desk.owesAnswer())
        desk.answer(u"kept"_s, {{u"window"_s, Desk::describe(window)}});
    return Then::Answered;
}

Then save(Desk &desk, const Words &words)
{
    const QPointer<QDialog> window(&topWindow());
    if (words.value(1) == u"twice"_s)
        // The second press waits in the queue, as it does when the first keeps the program busy.
        QMetaObject::invokeMethod(window.data(), &QDialog::accept, Qt::QueuedConnection);
    window->accept();
    return stillOpen(desk, window);
}

Then cancel(Desk &desk, const Words &)
{
    const QPointer<QDialog> window(&topWindow());
    window->reject();
    return stillOpen(desk, window);
}

Then press(Desk &desk, const Words &words)
{
    const QPointer<QDialog> window(&topWindow());
    auto *button = captioned<QAbstractButton>(*window, words.value(1));
    if (!button || !button->isEnabled())
        complain(u"no button to press: "_s + words.value(1));
    button->click();
    // The notice of a wait goes by itself, and what waited answers.
    if (!window || !window->isVisible() || Desk::isNotice(window))
        return Then::Answered;
    return desk.owesAnswer() ? Then::AnswerDone : Then::Answered;
}

Then row(Desk &, const Words &words)
{
    auto *list = topWindow().findChild<KExtListCtrl *>();
    if (!list || number(words, 1) >= list->count())
        complain(u"no such row"_s);
    list->selectRow(number(words, 1));
    return Then::AnswerDone;
}

Then window(Desk &desk, const Words &)
{
    desk.setValue(Desk::describe(QApplication::activeModalWidget()));
    return Then::AnswerDone;
}

// --- The list ---

CDlgAutomobilContracts &contractList()
{
    // Never destroyed: it would outlive the application.
    static auto &list = *new CDlgAutomobilContracts;
    list.open();
    list.refill();
    return list;
}

Then listed(Desk &desk, const Words &)
{
    QJsonArray keys;
    CDlgAutomobilContracts &list = contractList();
    for (int position = 0; position < list.list()->count(); ++position) {
        list.list()->selectRow(position);
        keys.append(list.list()->currentKey());
    }
    desk.setValue(keys);
    return Then::AnswerDone;
}

// The command on a contract that the list shows; the value tells whether it is still listed.
Then onListed(Desk &desk, const Words &words, QStringView command)
{
    const int key = number(words, 1);
    CDlgAutomobilContracts &list = contractList();
    if (!list.list()->selectKey(key))
        complain(u"the contract is not listed"_s);
    list.runCommand(command);
    desk.setValue(list.list()->selectKey(key));
    return desk.owesAnswer() ? Then::AnswerDone : Then::Answered;
}

// --- Money ---

Then receive(Desk &desk, const Words &words)
{
    desk.setValue(ReceiptPosting::save({.personID = number(words, 1),
                                        .date = GetDBSetting()->GetDBServerDate(),
                                        .account = Accounts::cash,
                                        .parts = {{static_cast<double>(number(words, 2)), words.value(3)}}})
                      .constFirst()
                      .docNum);
    return Then::AnswerDone;
}

Then undo(Desk &desk, const Words &words)
{
    const std::optional<Bin::Entry> entry = Bin::entryOf(u"AutomobilContracts"_s, number(words, 1));
    desk.setValue(entry ? BinRestoring::run(*entry).key : 0);
    return Then::AnswerDone;
}

Then instalments(Desk &, const Words &words)
{
    CDlgCalcPayment::Run(number(words, 1), number(words, 2), 0, nullptr);
    return Then::AnswerClosed;
}

Then report(Desk &desk, const Words &)
{
    const AccountBalance total = ComprehensiveReport::read({}, {}).income.total;
    desk.setValue(total.bes - total.bed);
    return Then::AnswerDone;
}

Then summedUp(Desk &, const Words &)
{
    TotalsFolding::fold();
    return Then::AnswerDone;
}

// --- Questions ---

Then asking(Desk &desk, const Words &words)
{
    desk.setAsking(words.value(1) == u"on"_s);
    return Then::AnswerDone;
}

Then notices(Desk &desk, const Words &words)
{
    desk.setNoticesHeard(words.value(1) == u"on"_s);
    return Then::AnswerDone;
}

Then answer(Desk &desk, const Words &words)
{
    desk.answerQuestion(words.value(1) == u"yes"_s);
    return Then::Answered;
}

}

QHash<QString, Desk::Command> DeskCommands::all()
{
    return {
        {u"login"_s, login},
        {u"office"_s, office},
        {u"person"_s, person},
        {u"new"_s, created},
        {u"edit"_s, edited},
        {u"parties"_s, parties},
        {u"car"_s, car},
        {u"from"_s, fromCar},
        {u"unlink"_s, parted},
        {u"vehicle"_s, vehicle},
        {u"set"_s, set},
        {u"get"_s, get},
        {u"save"_s, save},
        {u"cancel"_s, cancel},
        {u"press"_s, press},
        {u"row"_s, row},
        {u"window"_s, window},
        {u"list"_s, listed},
        {u"delete"_s, [](Desk &desk, const Words &words) { return onListed(desk, words, u"delete"); }},
        {u"archive"_s, [](Desk &desk, const Words &words) { return onListed(desk, words, u"archive"); }},
        {u"undo"_s, undo},
        {u"receive"_s, receive},
        {u"instalments"_s, instalments},
        {u"plan"_s, DeskMoney::plan},
        {u"pay"_s, DeskMoney::pay},
        {u"settle"_s, DeskMoney::settle},
        {u"void"_s, DeskMoney::makeVoid},
        {u"cheque"_s, DeskMoney::sendOn},
        {u"back"_s, DeskMoney::takeBack},
        {u"bin"_s, DeskBin::takeBack},
        {u"report"_s, report},
        {u"sum"_s, summedUp},
        {u"asking"_s, asking},
        {u"notices"_s, notices},
        {u"answer"_s, answer},
        {u"add"_s, DeskContention::add},
        {u"merge"_s, DeskContention::merge},
        {u"hold"_s, DeskContention::hold},
        {u"let"_s, DeskContention::letGo},
    };
}
