// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddCompanyProps.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/IdentityHints.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"

#include <QDialogButtonBox>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Field
{
    const char16_t *label;
    QString CompanyDetails::*text;
    int maxLength;
    int span = 1;
};

// In the order of the keyboard; the kind of person comes before the manager. The national code and the mobile have the room that
// their hints need.
constexpr std::array fields{
    Field{u"نام :", &CompanyDetails::name1, 100, 2},
    Field{u"دنباله نام :", &CompanyDetails::name2, 100, 2},
    Field{u"مدیر :", &CompanyDetails::manager, 100},
    Field{u"کد ملی / شناسه ملی :", &CompanyDetails::nationalCode, 20, 2},
    Field{u"شماره ثبت :", &CompanyDetails::registrationNumber, 50},
    Field{u"کد اقتصادی :", &CompanyDetails::economicCode, 50},
    Field{u"موبایل :", &CompanyDetails::mobile, 20, 2},
    Field{u"تلفن :", &CompanyDetails::telephone, 50},
    Field{u"کد پستی :", &CompanyDetails::postalCode, 20},
    Field{u"پیش شماره تلفن :", &CompanyDetails::areaCode, 8},
    Field{u"کد نوع مودی :", &CompanyDetails::taxKind, 1},
    Field{u"استان :", &CompanyDetails::province, 50},
    Field{u"شهر :", &CompanyDetails::city, 50},
    Field{u"کد استان :", &CompanyDetails::provinceCode, 4},
    Field{u"کد شهر :", &CompanyDetails::cityCode, 6},
    Field{u"حوزه مالیاتی :", &CompanyDetails::taxZone, 9},
    Field{u"آدرس :", &CompanyDetails::address, 250, 3},
};

constexpr std::array kinds{CompanyDetails::kindNatural, CompanyDetails::kindLegal};

// In the words of the window.
QString captionOf(const QString &key)
{
    CompanyDetails marked;
    for (const Field &field : fields)
        marked.*field.text = QString::fromUtf16(field.label).remove(u" :"_s);
    for (const CompanyDetails::Part &part : marked.parts()) {
        if (part.key == key && key != u"kind")
            return part.text;
    }
    return u"نوع شخص"_s;
}

QStringList officeKinds()
{
    return {u"حقیقی"_s, u"حقوقی"_s};
}

QList<SettingsEdit::Setting> editedSettings()
{
    QList<SettingsEdit::Setting> settings;
    for (const CompanyDetails::Part &part : CompanyDetails().parts()) {
        settings.append({CompanyDetails::section(), part.key, captionOf(part.key)});
        if (part.key == "kind"_L1)
            settings.back().words = QStringList{QString()} + officeKinds();
    }
    return settings;
}

std::size_t positionOf(QString CompanyDetails::*text)
{
    std::size_t position = 0;
    while (fields.at(position).text != text)
        ++position;
    return position;
}

}

CDlgAddCompanyProps::CDlgAddCompanyProps(QWidget *parent)
    : CDlgAddCompanyProps(OfficeSettings::read({CompanyDetails::section()}), parent)
{
}

CDlgAddCompanyProps::CDlgAddCompanyProps(const OfficeSettings &settings, QWidget *parent)
    : KDialog(parent)
    , m_edit(settings, editedSettings())
    , m_kind(new KDropDown(this))
{
    SetSettingName(u"Company"_s);
    setWindowTitle(u"مشخصات نمایشگاه"_s);
    build();
    setDetails(CompanyDetails::of(settings));
    m_edit.remember([this] { writeDetails(); });
}

CDlgAddCompanyProps::~CDlgAddCompanyProps() = default;

void CDlgAddCompanyProps::build()
{
    auto *page = new CardPage(840, this);
    FormGrid *grid = page->addForm();
    m_kind->addItems(officeKinds());
    for (const Field &field : fields) {
        if (field.text == &CompanyDetails::manager)
            addLabelled(grid, u"نوع شخص :"_s, m_kind);
        auto *edit = new KEdit(this);
        edit->setMaxLength(field.maxLength);
        addLabelled(grid, QString::fromUtf16(field.label), edit, field.span);
        connect(edit, &KEdit::textChanged, this, &CDlgAddCompanyProps::updateHints);
        m_edits.append(edit);
    }
    setContent(page, createButtons());
    HistoryButton::addTo(this, footer(), u"Properties:"_s + CompanyDetails::section(), 0);
    connect(m_kind, &QComboBox::currentIndexChanged, this, &CDlgAddCompanyProps::updateHints);
    m_edits.front()->setFocus();
}

CompanyDetails CDlgAddCompanyProps::details() const
{
    CompanyDetails details;
    for (std::size_t i = 0; i < fields.size(); ++i)
        details.*fields.at(i).text = m_edits.at(static_cast<qsizetype>(i))->text().trimmed();
    details.kind = kinds.at(static_cast<std::size_t>(qMax(m_kind->currentIndex(), 0)));
    return details;
}

void CDlgAddCompanyProps::setDetails(const CompanyDetails &details)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        m_edits.at(static_cast<qsizetype>(i))->setText(details.*fields.at(i).text);
    m_kind->setCurrentIndex(details.kind == CompanyDetails::kindNatural ? 0 : 1);
    updateHints();
}

void CDlgAddCompanyProps::updateHints()
{
    const int kind = m_kind->currentIndex() == 0 ? CTblPersons::kindNatural : CTblPersons::kindLegal;
    KEdit *national = m_edits.at(static_cast<qsizetype>(positionOf(&CompanyDetails::nationalCode)));
    KEdit *mobile = m_edits.at(static_cast<qsizetype>(positionOf(&CompanyDetails::mobile)));
    IdentityHints::show(IdentityHints::nationalCode(national->text(), kind), national);
    IdentityHints::show(IdentityHints::mobile(mobile->text()), mobile);
}

bool CDlgAddCompanyProps::OnOK()
{
    const CompanyDetails entered = details();
    if (entered.isEmpty()) {
        g_pDlgWarning->Show(u"لطفا نام نمایشگاه را وارد نمایید."_s, this);
        m_edits.front()->setFocus();
        return false;
    }
    GetDBSetting()->RequireOpenDB();
    const RowQuestions::Texts texts{.format = [](const QString &setting, const QVariant &value) -> std::optional<QString> {
        if (setting != SettingsEdit::nameOf(CompanyDetails::section(), u"kind"))
            return std::nullopt;
        return value.toInt() == CompanyDetails::kindLegal ? u"حقوقی"_s : u"حقیقی"_s;
    }};
    return RowQuestions::save(this, m_edit, texts, [this] { writeDetails(); }) == RowQuestions::Outcome::Saved;
}

void CDlgAddCompanyProps::writeDetails()
{
    for (const CompanyDetails::Part &part : details().parts())
        m_edit.setText(CompanyDetails::section(), part.key, part.text);
}
