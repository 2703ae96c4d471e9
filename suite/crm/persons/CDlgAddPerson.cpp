// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddPerson.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/twins/TwinNote.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/crm/persons/IdentityHints.h"
#include "suite/crm/persons/MobileNumber.h"
#include "suite/crm/persons/NationalCode.h"
#include "suite/crm/persons/PersonTwins.h"
#include "suite/crm/persons/TaxFields.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/TextStandard.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

// By the values of CTblPersons.
QStringList kindNames()
{
    return {u"حقیقی"_s, u"حقیقی (اتباع خارجی)"_s, u"حقوقی"_s};
}

QStringList sexNames()
{
    return {u"مرد"_s, u"زن"_s};
}

// In the order of the keyboard.
QList<KFormField> formFields()
{
    return {
        {.column = u"iKind"_s, .label = u"نوع شخص :"_s, .kind = Kind::Choice, .choices = kindNames()},
        {.column = u"iCode"_s, .label = u"کد شخص :"_s, .kind = Kind::Integer},
        {.column = u"sName"_s, .label = u"نام :"_s},
        {.column = u"sFamily"_s, .label = u"نام خانوادگی :"_s},
        {.column = u"sNationalCode"_s, .label = u"کد ملی :"_s},
        {.column = u"iSex"_s, .label = u"جنسیت :"_s, .kind = Kind::Choice, .choices = sexNames()},
        {.column = u"sFatherName"_s, .label = u"نام پدر :"_s},
        {.column = u"dateBirth"_s, .label = u"تاریخ تولد :"_s, .kind = Kind::Date},
        {.column = u"sBirthCity"_s, .label = u"محل تولد :"_s},
        {.column = u"sIdentityNum"_s, .label = u"شماره شناسنامه :"_s},
        {.column = u"sIdentityCity"_s, .label = u"محل صدور :"_s},
        {.column = u"sMobile"_s, .label = u"موبایل :"_s},
        {.column = u"sAreaCode"_s, .label = u"پیش شماره :"_s},
        {.column = u"sTel"_s, .label = u"تلفن :"_s},
        {.column = u"sPostalCode"_s, .label = u"کد پستی :"_s},
        {.column = u"sAddress"_s, .label = u"آدرس :"_s},
        {.column = u"sEconomicCode"_s, .label = u"کد اقتصادی :"_s},
        {.column = u"iTaxZone"_s, .label = u"حوزه مالیاتی :"_s, .kind = Kind::Integer},
        {.column = u"dPercentDiscount"_s, .label = u"درصد تخفیف :"_s, .kind = Kind::Percent},
        {.column = u"iStatus"_s, .label = u"غیر فعال"_s, .kind = Kind::Flag},
    };
}

// A label that reads otherwise for a legal person.
struct LegalLabel
{
    const char16_t *column;
    const char16_t *natural;
    const char16_t *legal;
};

constexpr std::array legalLabels{
    LegalLabel{u"sName", u"نام :", u"نام شرکت :"},
    LegalLabel{u"sNationalCode", u"کد ملی :", u"شناسه ملی :"},
    LegalLabel{u"dateBirth", u"تاریخ تولد :", u"تاریخ تاسیس :"},
    LegalLabel{u"sIdentityNum", u"شماره شناسنامه :", u"شماره ثبت :"},
    LegalLabel{u"sIdentityCity", u"محل صدور :", u"محل ثبت :"},
};

// What only people have.
constexpr std::array naturalOnly{u"sFamily", u"iSex", u"sFatherName", u"sBirthCity"};

bool isDigitsOnly(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.isDigit(); });
}

}

int CDlgAddPerson::Add(QWidget *parent, const QString &searchedFor)
{
    CDlgAddPerson dialog(Mode::Add, 0, parent);
    dialog.prefill(searchedFor);
    return dialog.exec() == Accepted ? dialog.personID() : 0;
}

int CDlgAddPerson::AddKnown(QWidget *parent, const Known &known)
{
    CDlgAddPerson dialog(Mode::Add, 0, parent);
    dialog.prefill(known);
    return dialog.exec() == Accepted ? dialog.personID() : 0;
}

bool CDlgAddPerson::Edit(QWidget *parent, int personID)
{
    CDlgAddPerson dialog(Mode::Edit, personID, parent);
    return dialog.isLoaded() && dialog.exec() == Accepted;
}

void CDlgAddPerson::Show(QWidget *parent, int personID)
{
    CDlgAddPerson dialog(Mode::Show, personID, parent);
    if (dialog.isLoaded())
        dialog.exec();
}

CDlgAddPerson::CDlgAddPerson(Mode mode, int personID, QWidget *parent)
    : KDialog(parent)
    , m_mode(mode)
    , m_edit(m_record, mode == Mode::Add ? 0 : personID, {{u"iProvinceCode"_s, u"iCityCode"_s}})
{
    SetSettingName(u"Persons\\Editor"_s);
    m_record.Open(true, false, true);
    if (mode == Mode::Add) {
        m_proposedCode = CTblPersons::nextCode();
        m_record.m_iCode = m_proposedCode;
        m_loaded = true;
    } else {
        m_loaded = m_record.IsRecordExist(u"iID"_s, personID);
    }
    if (!m_loaded)
        return;
    build();
    loadRecord();
    if (mode != Mode::Add)
        m_edit.remember([this] { storeEntries(); });
}

CDlgAddPerson::~CDlgAddPerson() = default;

void CDlgAddPerson::build()
{
    static const QStringList titles{u"شخص جدید"_s, u"ویرایش شخص"_s, u"نمایش شخص"_s};
    setWindowTitle(titles.at(static_cast<int>(m_mode)));
    m_form = new KForm(formFields(), m_record, this);
    m_tax = std::make_unique<TaxFields>(this);
    auto *page = new CardPage(840, this);
    placeIdentity(page);
    placeContact(page);
    placeTax(page);
    const bool show = m_mode == Mode::Show;
    setContent(page, show ? createButtons({}, u"بستن"_s) : createButtons());
    HistoryButton::addTo(this, footer(), m_record.GetTableName(), m_mode == Mode::Add ? 0 : m_record.m_iID);
    m_form->setShowMode(show);
    m_tax->setReadOnly(show);
    connect(m_form->comboBox(u"iKind"_s), &QComboBox::currentIndexChanged, this, &CDlgAddPerson::applyKind);
    for (const char16_t *column : {u"sNationalCode", u"sMobile"})
        connect(m_form->edit(QString::fromUtf16(column)), &KEdit::textChanged, this, &CDlgAddPerson::updateHints);
    wireTwins();
    m_form->control(u"sName"_s)->setFocus();
}

// Whether a code or number looks wrong is said as before, while no other person has it.
void CDlgAddPerson::wireTwins()
{
    KEdit *national = m_form->edit(u"sNationalCode"_s);
    KEdit *mobile = m_form->edit(u"sMobile"_s);
    m_nationalTwin = new TwinNote(
        national, [this](const QString &text) { return PersonTwins::ofNationalCode(text, m_edit.key()); },
        [this, national] { return IdentityHints::nationalCode(national->text(), m_form->comboBox(u"iKind"_s)->currentIndex()); });
    m_mobileTwin = new TwinNote(
        mobile, [this](const QString &text) { return PersonTwins::ofMobile(text, m_edit.key()); },
        [mobile] { return IdentityHints::mobile(mobile->text()); });
    m_nameTwin = new TwinNote(m_form->edit(u"sFatherName"_s), [this](const QString &text) {
        return PersonTwins::ofName(CTblPersons::displayName(m_form->edit(u"sName"_s)->text(), m_form->edit(u"sFamily"_s)->text()), text, m_edit.key());
    });
}

// The national code and the mobile have the room that their hints need.
void CDlgAddPerson::placeIdentity(CardPage *page)
{
    m_form->place(page->addForm(u"مشخصات"_s),
                  {{"iKind"}, {"iCode"}, {"sName"}, {"sFamily"}, {"sNationalCode", 2}, {"iSex"}, {"sFatherName"}, {"dateBirth"}, {"sBirthCity"}, {"sIdentityNum"}, {"sIdentityCity"}});
}

void CDlgAddPerson::placeContact(CardPage *page)
{
    m_form->place(page->addForm(u"تماس"_s), {{"sMobile", 2}, {"sAreaCode"}, {"sTel"}, {"sPostalCode"}, {"sAddress", 3}});
}

void CDlgAddPerson::placeTax(CardPage *page)
{
    FormGrid *grid = page->addForm(u"مالیات و تخفیف"_s);
    m_form->place(grid, {{"sEconomicCode"}, {"iTaxZone"}});
    m_tax->place(grid);
    m_form->place(grid, {{"dPercentDiscount"}, {"iStatus"}});
}

void CDlgAddPerson::loadRecord()
{
    m_openedKind = m_record.m_iKind;
    m_form->load(m_record);
    // Every kind above the named ones is a legal person too.
    m_form->comboBox(u"iKind"_s)->setCurrentIndex(m_record.isNatural() ? m_record.m_iKind : CTblPersons::kindLegal);
    m_tax->load(m_record);
    applyKind();
    for (TwinNote *twin : {m_nationalTwin, m_mobileTwin, m_nameTwin})
        twin->loaded();
}

void CDlgAddPerson::prefill(const QString &searchedFor)
{
    const QString text = ConvertToStandard(searchedFor);
    if (text.isEmpty())
        return;
    if (MobileNumber::isGood(text)) {
        m_form->edit(u"sMobile"_s)->setText(text);
    } else if (isDigitsOnly(text)) {
        // A short number was a search for a code, which the new person gets from the table.
        if (text.size() >= 8)
            m_form->edit(u"sNationalCode"_s)->setText(text);
    } else {
        prefillName(text);
    }
}

void CDlgAddPerson::prefillName(const QString &name)
{
    m_form->edit(u"sName"_s)->setText(name.section(u' ', 0, 0));
    m_form->edit(u"sFamily"_s)->setText(name.section(u' ', 1));
}

void CDlgAddPerson::prefill(const Known &known)
{
    const QString name = ConvertToStandard(known.name);
    if (NationalCode::checkCompany(known.nationalCode) == NationalCode::State::Good) {
        m_form->comboBox(u"iKind"_s)->setCurrentIndex(CTblPersons::kindLegal);
        m_form->edit(u"sName"_s)->setText(name);
    } else {
        prefillName(name);
    }
    m_form->edit(u"sNationalCode"_s)->setText(ConvertToStandard(known.nationalCode));
    m_form->edit(u"sMobile"_s)->setText(ConvertToStandard(known.mobile));
    m_form->edit(u"sTel"_s)->setText(ConvertToStandard(known.telephone));
    m_form->edit(u"sAddress"_s)->setText(ConvertToStandard(known.address));
}

void CDlgAddPerson::applyKind()
{
    const bool legal = m_form->comboBox(u"iKind"_s)->currentIndex() == CTblPersons::kindLegal;
    for (const LegalLabel &label : legalLabels) {
        m_form->setLabel(QString::fromUtf16(label.column), QString::fromUtf16(legal ? label.legal : label.natural));
    }
    for (const char16_t *name : naturalOnly) {
        const QString column = QString::fromUtf16(name);
        m_form->label(column)->setVisible(!legal);
        m_form->control(column)->setVisible(!legal);
    }
    updateHints();
}

void CDlgAddPerson::updateHints()
{
    KEdit *national = m_form->edit(u"sNationalCode"_s);
    KEdit *mobile = m_form->edit(u"sMobile"_s);
    const int kind = m_form->comboBox(u"iKind"_s)->currentIndex();
    IdentityHints::show(IdentityHints::nationalCode(national->text(), kind), national);
    IdentityHints::show(IdentityHints::mobile(mobile->text()), mobile);
}

bool CDlgAddPerson::OnOK()
{
    if (m_mode == Mode::Show)
        return true;
    GetDBSetting()->RequireOpenDB();
    return isEntryGood() && saveRecord();
}

bool CDlgAddPerson::isEntryGood()
{
    const auto refuse = [this](const QString &message, QWidget *control) {
        g_pDlgWarning->Show(message, this);
        control->setFocus();
        return false;
    };
    KEdit *name = m_form->edit(u"sName"_s);
    const QString family = m_form->edit(u"sFamily"_s)->text();
    if (CTblPersons::displayName(name->text(), family).isEmpty())
        return refuse(u"لطفا نام شخص را وارد نمایید."_s, name);
    if (const auto problem = m_form->firstInvalid())
        return refuse(problem->message, problem->widget);
    if (const QString problem = m_tax->problem(); !problem.isEmpty())
        return refuse(problem, m_tax->city());
    return true;
}

void CDlgAddPerson::storeEntries()
{
    m_form->store(m_record);
    // A legal person of a kind that the list does not name keeps it.
    if (m_record.m_iKind == CTblPersons::kindLegal && m_openedKind > CTblPersons::kindLegal)
        m_record.m_iKind = m_openedKind;
    m_tax->store(m_record);
}

void CDlgAddPerson::settle()
{
    settleCode();
    refuseTwins();
    const int other = CTblPersons::findByNationalCode(m_record.m_sNationalCode, m_edit.key());
    if (other != 0) {
        const QString caption = m_form->edit(u"sNationalCode"_s)->accessibleName().chopped(2);
        m_edit.doubt(u"%1 %2 برای «%3» ثبت شده است. آیا با این حال ذخیره شود؟"_s
                         .arg(caption, ConvertToStandard(m_record.m_sNationalCode), CTblPersonsMini::GetName(other)),
                     u"sNationalCode"_s);
    }
    settleTwins();
    m_record.m_bNatural = m_record.isNatural() ? 1 : 0;
    if (!m_record.isNatural()) {
        m_record.m_sName = CTblPersons::displayName(m_record.m_sName, m_record.m_sFamily);
        m_record.m_sFamily.clear();
    }
}

// What the office takes only once, where it was changed.
void CDlgAddPerson::refuseTwins()
{
    const std::tuple<OfficeSettings::Key, TwinNote *, QString, QString> numbers[] = {
        {TwinSettings::nationalCode, m_nationalTwin, u"کد ملی این شخص"_s, u"sNationalCode"_s},
        {TwinSettings::mobile, m_mobileTwin, u"موبایل این شخص"_s, u"sMobile"_s},
    };
    for (const auto &[key, note, what, column] : numbers) {
        const std::optional<Twin> twin = note->found();
        if (twin && TwinSettings::binds(key))
            throw FieldRefused(TwinSettings::refusal(what, *twin), column);
    }
}

void CDlgAddPerson::settleTwins()
{
    if (const std::optional<Twin> twin = m_mobileTwin->found())
        m_edit.doubt(u"موبایل %1 برای «%2» هم ثبت شده است. آیا با این حال ذخیره شود؟"_s.arg(m_record.m_sMobile, twin->text), u"sMobile"_s);
    if (const std::optional<Twin> twin = m_nameTwin->found())
        m_edit.doubt(u"«%1» با همین نام و نام پدر در فهرست هست. آیا با این حال ذخیره شود؟"_s.arg(twin->text), u"sFatherName"_s);
}

// A code that was proposed, not chosen, gives way to the person who has got it since.
void CDlgAddPerson::settleCode()
{
    if (CTblPersons::findByCode(m_record.m_iCode, m_edit.key()) == 0)
        return;
    if (!m_edit.isNew() || m_record.m_iCode != m_proposedCode)
        throw FieldRefused(u"این کد به شخص دیگری داده شده است."_s, u"iCode"_s);
    m_record.m_iCode = CTblPersons::nextCode();
}

bool CDlgAddPerson::saveRecord()
{
    RowQuestions::Texts texts = RowQuestions::textsOf(*m_form);
    texts.format = [this, ofForm = texts.format](const QString &column, const QVariant &value) {
        const std::optional<QString> word = TaxFields::word(column, value.toInt());
        return word ? word : ofForm(column, value);
    };
    const auto outcome = RowQuestions::save(
        this, m_edit, texts, [this] { storeEntries(); }, [this] { settle(); });
    if (outcome != RowQuestions::Outcome::Saved)
        return false;
    m_form->edit(u"iCode"_s)->setNumber(m_record.m_iCode);
    return true;
}
