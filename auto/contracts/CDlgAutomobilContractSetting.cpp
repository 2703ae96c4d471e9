// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContractSetting.h"

#include "auto/contracts/templates/CDlgContractTemplates.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t thirdTier = 2;
constexpr int usualWidth = 760;
constexpr int daysWidth = 12;     // letters
constexpr int longestGrace = 365; // days

QList<SettingsEdit::Setting> editedSettings()
{
    QList<SettingsEdit::Setting> settings;
    for (const ContractSettings::Part &part : ContractSettings().parts())
        settings.append({ContractSettings::section(), part.key, part.caption});
    return settings;
}

QList<QStringList> groups()
{
    QList<QStringList> groups;
    for (const QStringList &keys : ContractSettings::keysTogether()) {
        QStringList names;
        for (const QString &key : keys)
            names.append(SettingsEdit::nameOf(ContractSettings::section(), key));
        groups.append(names);
    }
    return groups;
}

KEdit *createEdit(KEdit::Kind kind, const QString &name, const QString &description)
{
    auto *edit = new KEdit(kind);
    edit->setAccessibleName(name);
    edit->setAccessibleDescription(description);
    return edit;
}

// Display only, skipped by the keyboard.
KEdit *createLowerBound(const QString &name, const QString &description)
{
    KEdit *edit = createEdit(KEdit::Kind::Money, name, description);
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::NoFocus);
    edit->setText(u"0"_s);
    return edit;
}

// A field and what it is measured in.
QHBoxLayout *withUnit(KEdit *edit, QLabel *unit)
{
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(edit, 1);
    line->addWidget(unit);
    return line;
}

}

CDlgAutomobilContractSetting::CDlgAutomobilContractSetting(QWidget *parent)
    : CDlgAutomobilContractSetting(OfficeSettings::read({ContractSettings::section()}), parent)
{
}

CDlgAutomobilContractSetting::CDlgAutomobilContractSetting(const OfficeSettings &settings, QWidget *parent)
    : KDialog(parent)
    , m_edit(settings, editedSettings(), groups())
{
    setWindowTitle(u"تنظيمات"_s);
    SetSettingName(u"AutomobilContractSetting"_s);
    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    cards->addCard(createTaxGroup());
    cards->addCard(createTierGroup(settings.moneyUnitName()));
    cards->addCard(createDemandGroup());
    cards->addCard(createMoneyGroup());
    setContent(content, createButtons());
    HistoryButton::addTo(this, footer(), u"Properties:"_s + ContractSettings::section(), 0);
    addTemplatesButton();
    showSettings(ContractSettings::of(settings));
    m_edit.remember([this] { writeSettings(); });
    resize(LookSizes::scaled(usualWidth), sizeHint().height());
}

// What is printed belongs to no contract, and an office without contracts sets it up too.
void CDlgAutomobilContractSetting::addTemplatesButton()
{
    const QString caption = u"قالب‌های قرارداد"_s;
    auto *button = new QPushButton(LookIcons::icon(u":/icons/document.svg"_s), caption, this);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { CDlgContractTemplates::Show(this); }); });
    footer()->addWidget(button);
}

QWidget *CDlgAutomobilContractSetting::createTaxGroup()
{
    auto *group = new QGroupBox(u"ماليات و عوارض"_s);
    auto *grid = new FormGrid(group);
    const auto addPercent = [grid](const QString &text) {
        KEdit *edit = createEdit(KEdit::Kind::Percent, text, {});
        QLabel *label = labelFor(text, edit);
        grid->addField(label, new FieldNote(edit), withUnit(edit, new QLabel(u"%"_s)), 1);
        return edit;
    };
    m_taxPercent = addPercent(u"ماليات :"_s);
    m_dutyPercent = addPercent(u"عوارض :"_s);
    return group;
}

QWidget *CDlgAutomobilContractSetting::createTierGroup(const QString &moneyUnit)
{
    auto *group = new QGroupBox(u"پله‌های کمیسیون"_s);
    auto *grid = new FormGrid(group);
    for (int tier = 0; tier < int(m_tiers.size()); ++tier)
        createTierRow(grid, tier, moneyUnit);
    connect(m_thirdInUse, &QCheckBox::toggled, this, &CDlgAutomobilContractSetting::showThirdTier);
    for (std::size_t tier = 0; tier < thirdTier; ++tier) {
        connect(m_tiers[tier].ceiling, &KEdit::numberChanged, this,
                [this, tier] { showNextLowerBound(tier); });
    }
    return group;
}

void CDlgAutomobilContractSetting::createTierRow(FormGrid *grid, int tier, const QString &moneyUnit)
{
    const QString fromText = u"مبلغ معامله از :"_s;
    const QString toText = u"تا :"_s;
    const QString description = u"پله %1 کمیسیون"_s.arg(tier + 1);
    TierRow &row = m_tiers[std::size_t(tier)];
    row.lowerBound = createLowerBound(fromText, description);
    row.ceiling = createEdit(KEdit::Kind::Money, toText, description);
    row.percent = createEdit(KEdit::Kind::Percent, u"%"_s, description);
    auto *fromUnit = new QLabel(moneyUnit);
    auto *toUnit = new QLabel(moneyUnit);
    auto *percentSign = new QLabel(u"%"_s);
    QLabel *toLabel = labelFor(toText, row.ceiling);

    grid->startRow();
    QLabel *heading = nullptr;
    if (std::size_t(tier) == thirdTier) {
        m_thirdInUse = new QCheckBox(fromText);
        m_thirdInUse->setAccessibleName(fromText);
        grid->addCell(m_thirdInUse, 4);
        grid->startRow();
    } else {
        heading = labelFor(fromText, row.lowerBound);
    }
    grid->addField(heading, nullptr, withUnit(row.lowerBound, fromUnit), 1);
    grid->addField(toLabel, nullptr, withUnit(row.ceiling, toUnit), 2);
    grid->addField(nullptr, nullptr, withUnit(row.percent, percentSign), 1);
    row.widgets = {row.lowerBound, fromUnit, toLabel, row.ceiling, toUnit, row.percent, percentSign};
}

QWidget *CDlgAutomobilContractSetting::createDemandGroup()
{
    auto *group = new QGroupBox(u"بایگانی تقاضاها"_s);
    m_archiveDemands = new QCheckBox(u"تقاضاهاي بيشتر از "_s);
    m_archiveDemands->setAccessibleName(m_archiveDemands->text());
    m_demandDays = new KEdit(KEdit::Kind::Integer);
    m_demandDays->setMaximumWidth(fontMetrics().averageCharWidth() * daysWidth);
    auto *sentence = new QHBoxLayout;
    sentence->setSpacing(LookSizes::unit);
    sentence->addWidget(m_archiveDemands);
    sentence->addWidget(m_demandDays);
    sentence->addWidget(labelFor(u"روز را بايگاني نمايد."_s, m_demandDays));
    sentence->addStretch();
    (new FormGrid(group))->addCell(sentence, 4);
    return group;
}

// Ticks that say below themselves what they do.
QWidget *CDlgAutomobilContractSetting::createMoneyGroup()
{
    auto *group = new QGroupBox(u"تسویه و فروش اقساطی"_s);
    auto *grid = new FormGrid(group);
    const auto addTick = [grid](const QString &text, const QString &hint) {
        auto *box = new QCheckBox(text);
        box->setAccessibleName(text);
        box->setAccessibleDescription(hint);
        grid->startRow();
        grid->addCell(box, 4);
        auto *line = new QLabel(hint);
        line->setWordWrap(true);
        LookFonts::applyHint(line);
        grid->addLine(line);
        return box;
    };
    m_levySeparate = addTick(u"ماليات و عوارض جدا از پرداختي دريافت شود"_s,
                             u"خاموش: تسویه، مانده سند قرارداد را پیشنهاد می‌کند. روشن: جمع پرداختي و ماليات و عوارض را، منهای آنچه دریافت شده است."_s);
    m_postPlan = addTick(u"فروش اقساطی در دفاتر ثبت شود"_s,
                         u"سند فروش اقساطی بهای خودرو و بهره اقساط را بدهی خریدار می‌کند و هر دریافت از آن کم می‌شود. سندهای پیشین تغییر نمی‌کنند."_s);
    const auto addNumber = [grid](const QString &text, KEdit::Kind kind, const QString &unit) {
        KEdit *edit = createEdit(kind, text, {});
        grid->addField(labelFor(text, edit), new FieldNote(edit), withUnit(edit, new QLabel(unit)), 2);
        return edit;
    };
    grid->startRow();
    m_lateFeePercent = addNumber(u"جریمه دیرکرد هر قسط در روز :"_s, KEdit::Kind::Percent, u"%"_s);
    m_lateFeeGrace = addNumber(u"پس از سررسید، مهلت :"_s, KEdit::Kind::Integer, u"روز"_s);
    auto *hint = new QLabel(u"جریمه فقط نشان داده می‌شود و خودبه‌خود ثبت نمی‌شود؛ صفر یعنی بدون جریمه."_s);
    LookFonts::applyHint(hint);
    grid->addLine(hint);
    return group;
}

void CDlgAutomobilContractSetting::showSettings(const ContractSettings &settings)
{
    m_taxPercent->setNumber(settings.taxPercent);
    m_dutyPercent->setNumber(settings.dutyPercent);
    for (std::size_t tier = 0; tier < m_tiers.size(); ++tier) {
        m_tiers[tier].ceiling->setNumber(settings.tiers.ceilings[tier]);
        m_tiers[tier].percent->setNumber(settings.tiers.percents[tier]);
    }
    m_thirdInUse->setChecked(settings.tiers.thirdInUse);
    showThirdTier(settings.tiers.thirdInUse);
    m_archiveDemands->setChecked(settings.archiveDemands);
    m_demandDays->setNumber(settings.demandDays);
    m_levySeparate->setChecked(settings.levySeparate);
    m_postPlan->setChecked(settings.postPlan);
    m_lateFeePercent->setNumber(settings.lateFeePercent);
    m_lateFeeGrace->setNumber(settings.lateFeeGrace);
}

ContractSettings CDlgAutomobilContractSetting::shownSettings() const
{
    ContractSettings settings;
    settings.taxPercent = m_taxPercent->number();
    settings.dutyPercent = m_dutyPercent->number();
    for (std::size_t tier = 0; tier < m_tiers.size(); ++tier) {
        settings.tiers.ceilings[tier] = m_tiers[tier].ceiling->number();
        settings.tiers.percents[tier] = m_tiers[tier].percent->number();
    }
    settings.tiers.thirdInUse = m_thirdInUse->isChecked();
    settings.archiveDemands = m_archiveDemands->isChecked();
    settings.demandDays = m_demandDays->integer();
    settings.levySeparate = m_levySeparate->isChecked();
    settings.postPlan = m_postPlan->isChecked();
    settings.lateFeePercent = m_lateFeePercent->number();
    settings.lateFeeGrace = m_lateFeeGrace->integer();
    return settings;
}

void CDlgAutomobilContractSetting::showNextLowerBound(std::size_t tier)
{
    const double ceiling = m_tiers[tier].ceiling->number();
    if (!IsEquals(ceiling, 0))
        m_tiers[tier + 1].lowerBound->setNumber(ceiling + 1);
}

void CDlgAutomobilContractSetting::showThirdTier(bool shown)
{
    for (QWidget *widget : m_tiers[thirdTier].widgets)
        widget->setVisible(shown);
}

bool CDlgAutomobilContractSetting::OnOK()
{
    GetDBSetting()->RequireOpenDB();
    const QList<KEdit *> fields = findChildren<KEdit *>();
    for (KEdit *field : fields) {
        if (!field->isReadOnly() && field->isVisibleTo(this) && !field->isEntryValid())
            return warn(field->accessibleName() + u' ' + field->entryError(), field);
    }
    if (lateFeeRefused())
        return false;
    const ContractSettings settings = shownSettings();
    switch (settings.check()) {
    case ContractSettings::Problem::SecondTierBelowFirst:
        return warn(u"لطفا مبلغ دوم را بیشتر از مبلغ اول وارد نماید."_s, m_tiers[1].ceiling);
    case ContractSettings::Problem::ThirdTierBelowOthers:
        return warn(u"لطفا مبلغ سوم را بیشتر از تمامی مبلغ ها وارد نماید."_s,
                    settings.tiers.thirdInUse ? static_cast<QWidget *>(m_tiers[thirdTier].ceiling) : m_thirdInUse);
    case ContractSettings::Problem::None:
        break;
    }
    return save();
}

bool CDlgAutomobilContractSetting::lateFeeRefused()
{
    const int days = m_lateFeeGrace->integer();
    if (days >= 0 && days <= longestGrace)
        return false;
    warn(m_lateFeeGrace->accessibleName() + u" مقدار باید بین 0 و %1 باشد."_s.arg(longestGrace), m_lateFeeGrace);
    return true;
}

void CDlgAutomobilContractSetting::writeSettings()
{
    for (const ContractSettings::Part &part : shownSettings().parts())
        m_edit.setText(ContractSettings::section(), part.key, part.text);
}

bool CDlgAutomobilContractSetting::save()
{
    ContractSettings::requireRight();
    const RowQuestions::Texts texts{
        .format = [](const QString &, const QVariant &value) { return DToMoney(value.toString().toDouble()); }};
    return RowQuestions::save(this, m_edit, texts, [this] { writeSettings(); }) == RowQuestions::Outcome::Saved;
}

bool CDlgAutomobilContractSetting::warn(const QString &text, QWidget *field)
{
    g_pDlgWarning->Show(text, this);
    field->setFocus(Qt::TabFocusReason);
    return false;
}
