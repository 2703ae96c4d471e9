// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgPlanChoice.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/Money.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

QString captionOf(PlanChoice choice, const PlanFollowing::Facts &facts)
{
    switch (choice) {
    case PlanChoice::NewPlan: return u"پس از ذخیره، برنامه تازه‌ای برای مانده قرارداد محاسبه شود"_s;
    case PlanChoice::Spread: break;
    case PlanChoice::Delete: return u"برنامه اقساط حذف شود"_s;
    case PlanChoice::Leave: return u"برنامه اقساط به همین شکل بماند؛ این ناهماهنگی در پنجره اقساط و هنگام چاپ گفته می‌شود"_s;
    }
    if (!facts.agreement().amount)
        return u"اقساط پرداخت‌نشده به نام خریدار تازه شود"_s;
    return u"مانده تازه روی اقساط پرداخت‌نشده پخش شود؛ تاریخ‌ها، نرخ بهره و آنچه دریافت شده می‌ماند"_s;
}

QLabel *sentence(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

}

CDlgPlanChoice::CDlgPlanChoice(const PlanFollowing::Facts &facts, QWidget *parent)
    : KDialog(parent)
    , m_choices(new QButtonGroup(this))
{
    setWindowTitle(u"برنامه اقساط"_s);
    SetSettingName(u"AutomobilPayments\\Choice"_s);
    auto *page = new CardPage(640, this);
    FormGrid *said = page->addForm();
    QStringList sentences = facts.sentences();
    if (facts.plan.anyReceived)
        sentences.append(u"از این اقساط مبلغی دریافت شده است."_s);
    for (const QString &text : std::as_const(sentences))
        said->addLine(sentence(text, page));
    FormGrid *offered = page->addForm(u"با برنامه اقساط چه شود؟"_s);
    for (const PlanChoice choice : facts.choices()) {
        auto *button = new QRadioButton(captionOf(choice, facts), page);
        button->setAccessibleName(button->text());
        m_choices->addButton(button, static_cast<int>(choice));
        offered->addLine(button);
    }
    m_choices->buttons().constFirst()->setChecked(true);
    setContent(page, createButtons());
    m_choices->buttons().constFirst()->setFocus();
}

CDlgPlanChoice::~CDlgPlanChoice() = default;

std::optional<PlanChoice> CDlgPlanChoice::ask(const PlanFollowing::Facts &facts, QWidget *parent)
{
    CDlgPlanChoice dialog(facts, parent);
    return dialog.exec() == Accepted ? std::optional(dialog.choice()) : std::nullopt;
}

PlanChoice CDlgPlanChoice::choice() const
{
    return static_cast<PlanChoice>(m_choices->checkedId());
}

bool CDlgPlanChoice::choose(PlanChoice choice)
{
    QAbstractButton *button = m_choices->button(static_cast<int>(choice));
    if (button)
        button->setChecked(true);
    return button != nullptr;
}
