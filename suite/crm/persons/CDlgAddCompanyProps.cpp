// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddCompanyProps.h"

#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/IdentityHints.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Field
{
    const char16_t *label;
    QString CompanyDetails::*text;
    int maxLength;
    int row;
    int gridColumn;
    int span;
};

// In the order of the keyboard.
constexpr std::array fields{
    Field{u"نام :", &CompanyDetails::name1, 100, 0, 0, 1},
    Field{u"دنباله نام :", &CompanyDetails::name2, 100, 0, 2, 1},
    Field{u"مدیر :", &CompanyDetails::manager, 100, 1, 2, 1},
    Field{u"کد ملی / شناسه ملی :", &CompanyDetails::nationalCode, 20, 2, 0, 1},
    Field{u"شماره ثبت :", &CompanyDetails::registrationNumber, 50, 3, 0, 1},
    Field{u"کد اقتصادی :", &CompanyDetails::economicCode, 50, 3, 2, 1},
    Field{u"موبایل :", &CompanyDetails::mobile, 20, 4, 0, 1},
    Field{u"تلفن :", &CompanyDetails::telephone, 50, 5, 0, 1},
    Field{u"کد پستی :", &CompanyDetails::postalCode, 20, 5, 2, 1},
    Field{u"پیش شماره تلفن :", &CompanyDetails::areaCode, 8, 6, 0, 1},
    Field{u"کد نوع مودی :", &CompanyDetails::taxKind, 1, 6, 2, 1},
    Field{u"استان :", &CompanyDetails::province, 50, 7, 0, 1},
    Field{u"شهر :", &CompanyDetails::city, 50, 7, 2, 1},
    Field{u"کد استان :", &CompanyDetails::provinceCode, 4, 8, 0, 1},
    Field{u"کد شهر :", &CompanyDetails::cityCode, 6, 8, 2, 1},
    Field{u"حوزه مالیاتی :", &CompanyDetails::taxZone, 9, 9, 0, 1},
    Field{u"آدرس :", &CompanyDetails::address, 250, 10, 0, 3},
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

QList<SettingsEdit::Setting> editedSettings()
{
    QList<SettingsEdit::Setting> settings;
    for (const CompanyDetails::Part &part : CompanyDetails().parts())
        settings.append({CompanyDetails::section(), part.key, captionOf(part.key)});
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
    , m_kind(new QComboBox(this))
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
    auto *grid = new QGridLayout(this);
    for (const Field &field : fields) {
        auto *edit = new KEdit(this);
        edit->setMaxLength(field.maxLength);
        addLabelled(grid, field.row, field.gridColumn, QString::fromUtf16(field.label), edit, field.span);
        connect(edit, &KEdit::textChanged, this, &CDlgAddCompanyProps::updateHints);
        m_edits.append(edit);
    }
    m_kind->addItems({u"حقیقی"_s, u"حقوقی"_s});
    addLabelled(grid, 1, 0, u"نوع شخص :"_s, m_kind);
    setTabOrder(m_edits.at(1), m_kind);
    setTabOrder(m_kind, m_edits.at(2));
    m_nationalHint = IdentityHints::createLabel(this);
    m_mobileHint = IdentityHints::createLabel(this);
    grid->addWidget(m_nationalHint, 2, 2, 1, 2);
    grid->addWidget(m_mobileHint, 4, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    const int last = grid->rowCount();
    grid->setRowStretch(last, 1);
    grid->addWidget(createButtons(), last + 1, 0, 1, 4);
    resize(qMax(sizeHint().width(), 680), sizeHint().height());
    connect(m_kind, &QComboBox::currentIndexChanged, this, &CDlgAddCompanyProps::updateHints);
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
    if (!m_nationalHint || !m_mobileHint)
        return;
    const int kind = m_kind->currentIndex() == 0 ? CTblPersons::kindNatural : CTblPersons::kindLegal;
    KEdit *national = m_edits.at(static_cast<qsizetype>(positionOf(&CompanyDetails::nationalCode)));
    KEdit *mobile = m_edits.at(static_cast<qsizetype>(positionOf(&CompanyDetails::mobile)));
    IdentityHints::show(IdentityHints::nationalCode(national->text(), kind), m_nationalHint, national);
    IdentityHints::show(IdentityHints::mobile(mobile->text()), m_mobileHint, mobile);
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
