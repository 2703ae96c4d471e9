// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/templates/CDlgContractTemplates.h"

#include "auto/contracts/printing/ContractPrintingDialogs.h"
#include "auto/contracts/templates/TemplateEditing.h"
#include "auto/contracts/templates/TemplateFindings.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString form = u"AutomobilContracts"_s;
const QString suppliedWords = u"قالب همراه برنامه"_s;

// A row's key in the list of types; the lists' keys begin with 1.
int keyOf(int contractType)
{
    return contractType + 1;
}

QString suppliedName(int contractType)
{
    return contractType == ContractTemplates::letter ? ContractPrinting::letterName() : ContractPrinting::templateName(contractType);
}

QString typeName(int contractType)
{
    return WordLists::texts(WordLists::contractTypes()).value(contractType);
}

QVector<KListModel::Column> typeColumns()
{
    return {{u"نوع قرارداد"_s, Qt::AlignRight, 90}, {u"قالب در حال استفاده"_s, Qt::AlignRight, 170}, {u"کاربر"_s, Qt::AlignRight, 90}, {u"تاریخ"_s, Qt::AlignCenter, 70, {}, true}};
}

QVector<KListModel::Column> versionColumns()
{
    return {{u"نام فایل"_s, Qt::AlignRight, 130}, {u"از کجا"_s, Qt::AlignRight, 110}, {u"کاربر"_s, Qt::AlignRight, 80}, {u"تاریخ"_s, Qt::AlignCenter, 65, {}, true}, {u"ساعت"_s, Qt::AlignCenter, 40}, {u"وضعیت"_s, Qt::AlignRight, 80}};
}

KListModel::Row typeRow(int contractType)
{
    for (const ContractTemplates::Version &version : ContractTemplates::versions(contractType)) {
        if (version.isInUse)
            return {keyOf(contractType), {{typeName(contractType)}, {version.name}, {version.user}, {shamsiText(version.created.date()), version.created.date()}}};
    }
    return {keyOf(contractType), {{typeName(contractType)}, {suppliedWords}, {u"-"_s}, {QString()}}};
}

KListModel::Row versionRow(const ContractTemplates::Version &version)
{
    return {version.id, {{version.name}, {version.source}, {version.user}, {shamsiText(version.created.date()), version.created.date()}, {version.created.time().toString(u"HH:mm"_s)}, {version.isInUse ? u"در حال استفاده"_s : u"-"_s}}};
}

// By its code, of that type; 0: there is none.
qint32 contractOf(int code, int contractType)
{
    CTblTemp query;
    query.Open(true, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM AutomobilContracts WHERE iCode=%d AND iContractType=%d", code, contractType);
    return query.HasResultRow() ? query.GetLongFieldValue(0) : 0;
}

int newestCode(int contractType)
{
    CTblTemp query;
    query.Open(true, false, true);
    query.FormatAndExecuteQuery("SELECT iCode FROM AutomobilContracts WHERE iContractType=%d AND iID NOT IN (SELECT iRecordID FROM Placeholders WHERE sTable='AutomobilContracts')"
                                " ORDER BY iCode DESC LIMIT 1",
                                contractType);
    return query.HasResultRow() ? query.GetLongFieldValue(0) : 0;
}

}

CDlgContractTemplates::CDlgContractTemplates(QWidget *parent, ContractPrinting::Places places)
    : KDialog(parent)
    , m_places(std::move(places))
{
    if (m_places.templates.isEmpty())
        m_places.templates = ContractPrinting::defaultTemplateFolder();
    setWindowTitle(u"قالب‌های قرارداد"_s);
    SetSettingName(u"AutomobilContracts\\Templates"_s);
    build();
    resize(LookSizes::scaled(860), LookSizes::scaled(660));
    refill();
    choose(0);
    m_types->setFocus();
}

CDlgContractTemplates::~CDlgContractTemplates() = default;

void CDlgContractTemplates::Show(QWidget *parent)
{
    KSecurity security;
    security.SetFormName(form);
    if (security.CheckReadSecurity())
        CDlgContractTemplates(parent).exec();
}

QPushButton *CDlgContractTemplates::command(const QString &caption, const QString &icon, void (CDlgContractTemplates::*run)())
{
    auto *button = new QPushButton(LookIcons::icon(icon), caption, this);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    LookMarks::setButton(button, LookMarks::Button::Small);
    connect(button, &QPushButton::clicked, this, [this, run] { KErrorBoundary::guarded(this, [this, run] { (this->*run)(); }); });
    return button;
}

void CDlgContractTemplates::build()
{
    m_types = new KExtListCtrl(this);
    m_types->setAccessibleName(u"نوع‌های قرارداد"_s);
    m_types->setColumns(typeColumns());
    m_types->SetSettingName(u"AutomobilContracts\\TemplateTypes"_s);
    // There are these types and no more: the room is the former templates'.
    m_types->setFixedHeight(LookSizes::scaled(LookSizes::titleRow + 4 * LookSizes::row + LookSizes::unit));
    m_versions = new KExtListCtrl(this);
    m_versions->setAccessibleName(u"قالب‌های پیشین"_s);
    m_versions->setColumns(versionColumns());
    m_versions->SetSettingName(u"AutomobilContracts\\TemplateVersions"_s);
    connect(m_types, &KExtListCtrl::currentKeyChanged, this, [this] { KErrorBoundary::guarded(this, [this] { fillVersions(); }); });
    connect(m_versions, &KExtListCtrl::currentKeyChanged, this, &CDlgContractTemplates::updateButtons);

    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    cards->addCard(new KListCard(m_types, content));
    cards->addCard(buildCommands());
    cards->addCard(buildPreview());
    auto *before = new KListCard(m_versions, content);
    m_goBack = command(u"بازگشت به این قالب"_s, u":/icons/history.svg"_s, &CDlgContractTemplates::goBack);
    before->addToFoot(m_goBack);
    cards->addCard(before, true);
    setContent(content, createButtons({}, u"بازگشت"_s));
}

QWidget *CDlgContractTemplates::buildCommands()
{
    auto *line = new QWidget(this);
    auto *commands = new QHBoxLayout(line);
    commands->setContentsMargins(0, 0, 0, 0);
    commands->setSpacing(LookSizes::unit);
    m_replace = command(u"جایگزینی با فایل"_s, u":/icons/attach.svg"_s, &CDlgContractTemplates::chooseFile);
    m_edit = command(u"ویرایش در واژه‌پرداز"_s, u":/icons/edit.svg"_s, &CDlgContractTemplates::edit);
    m_takeBack = command(u"گرفتن ویرایش"_s, u":/icons/save.svg"_s, &CDlgContractTemplates::takeBack);
    m_check = command(u"بررسی"_s, u":/icons/check.svg"_s, &CDlgContractTemplates::check);
    m_supplied = command(suppliedWords, u":/icons/refresh.svg"_s, &CDlgContractTemplates::useSupplied);
    for (QPushButton *button : {m_replace, m_edit, m_takeBack, m_check, m_supplied})
        commands->addWidget(button);
    commands->addStretch();
    return line;
}

QWidget *CDlgContractTemplates::buildPreview()
{
    auto *box = new QGroupBox(this);
    m_contract = new KEdit(KEdit::Kind::Integer, box);
    m_preview = command(u"پیش‌نمایش"_s, u":/icons/show.svg"_s, &CDlgContractTemplates::preview);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_contract, 1);
    line->addWidget(m_preview);
    (new FormGrid(box, FormGrid::Extent::Half))->addField(labelFor(u"کد قرارداد برای پیش‌نمایش :"_s, m_contract), new FieldNote(m_contract), line, 2);
    return box;
}

int CDlgContractTemplates::type() const
{
    return m_types->currentKey() - 1;
}

void CDlgContractTemplates::choose(int contractType)
{
    m_types->selectKey(keyOf(contractType));
}

void CDlgContractTemplates::refill()
{
    const KWaitCursor wait;
    const int chosen = m_types->currentKey();
    QVector<KListModel::Row> rows;
    for (int contractType = 0; contractType < ContractTemplates::types; ++contractType)
        rows.append(typeRow(contractType));
    m_types->setRows(std::move(rows));
    m_types->selectKey(chosen);
    fillVersions();
}

void CDlgContractTemplates::fillVersions()
{
    if (type() < 0)
        return;
    m_seen = 0;
    QVector<KListModel::Row> rows;
    for (const ContractTemplates::Version &version : ContractTemplates::versions(type())) {
        rows.append(versionRow(version));
        if (version.isInUse && m_seen == 0)
            m_seen = version.id;
    }
    m_versions->setRows(std::move(rows));
    m_versions->selectRow(0);
    const int code = newestCode(type());
    m_contract->setText(code > 0 ? QString::number(code) : QString());
    updateButtons();
}

void CDlgContractTemplates::updateButtons()
{
    const bool mayChange = KSecurity::IsGranted(form, KSecurity::Modify);
    m_replace->setEnabled(mayChange);
    m_edit->setEnabled(mayChange);
    m_takeBack->setEnabled(mayChange && m_editing);
    m_supplied->setEnabled(mayChange && m_seen > 0);
    m_goBack->setEnabled(mayChange && m_versions->currentKey() > 0 && m_versions->currentKey() != m_seen);
}

ContractTemplates::Held CDlgContractTemplates::current() const
{
    const ContractTemplates::Held own = ContractTemplates::version(type(), m_seen);
    if (own.id > 0)
        return own;
    const QString name = suppliedName(type());
    const QString path = QDir(m_places.templates).filePath(name);
    if (!QFileInfo(path).isFile())
        throw KAccountingError(u"برای این نوع قرارداد قالبی نیست؛ نخست فایلی را جایگزین نمایید."_s);
    return {0, name, ContractTemplates::read(path)};
}

bool CDlgContractTemplates::change(qint32 seen, const std::function<void(qint32 seen)> &work)
{
    for (;;) {
        try {
            const KWaitCursor wait;
            work(seen);
            break;
        } catch (const ContractTemplates::Overtaken &overtaken) {
            const QString question = overtaken.userMessage() + u"\nبا این حال قالب شما جای آن را بگیرد؟"_s;
            if (g_pDlgYesNo->Ask(question, this) != KMessageDialog::Yes) {
                refill();
                return false;
            }
            seen = overtaken.now();
        }
    }
    refill();
    return true;
}

void CDlgContractTemplates::chooseFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString path = QFileDialog::getOpenFileName(this, m_replace->text(), folder, u"فایل ورد (*.docx)"_s);
    if (!path.isEmpty())
        replaceBy(path);
}

void CDlgContractTemplates::replaceBy(const QString &path)
{
    const QByteArray file = ContractTemplates::read(path);
    const int contractType = type();
    change(m_seen, [&](qint32 seen) { ContractTemplates::use(contractType, QFileInfo(path).fileName(), file, u"از فایل"_s, seen); });
}

void CDlgContractTemplates::edit()
{
    if (!mayDropEditing())
        return;
    const ContractTemplates::Held held = current();
    delete m_editing;
    m_editing = new TemplateEditing(type(), held.name, held.file, held.id, m_places.temporary, this);
    connect(m_editing, &TemplateEditing::saved, this, &CDlgContractTemplates::editingSaved);
    updateButtons();
    if (m_editing->path().isEmpty())
        g_pDlgWarning->Show(u"نسخه موقت قالب ساخته نشد."_s, this);
    else if (!KProcess::Execute(u"Explorer"_s, m_editing->path()))
        g_pDlgWarning->Show(u"برنامه‌ای برای باز کردن قالب پیدا نشد. قالب در این مسیر است و ویرایش آن از اینجا گرفته می‌شود:\n%1"_s.arg(QDir::toNativeSeparators(m_editing->path())), this);
}

void CDlgContractTemplates::editingSaved()
{
    const QString question = u"قالب «%1» در واژه‌پرداز ذخیره شد. از این پس از آن چاپ شود؟"_s.arg(typeName(m_editing->contractType()));
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes)
        KErrorBoundary::guarded(this, [this] { takeBack(); });
}

// Against what was in use when the editing began: what another desk chose since is asked about.
void CDlgContractTemplates::takeBack()
{
    if (!m_editing || !m_editing->isChanged()) {
        g_pDlgMessage->Show(u"در واژه‌پرداز چیزی ذخیره نشده است."_s, this);
        return;
    }
    const QByteArray file = m_editing->content();
    const QString name = m_editing->name();
    qint32 key = 0;
    const auto use = [&](qint32 seen) { key = ContractTemplates::use(m_editing->contractType(), name, file, u"ویرایش در واژه‌پرداز"_s, seen); };
    if (change(m_editing->seen(), use))
        m_editing->taken(file, key);
}

bool CDlgContractTemplates::mayDropEditing()
{
    return !m_editing || !m_editing->isChanged()
        || g_pDlgYesNo->Ask(u"آنچه در واژه‌پرداز ذخیره شده گرفته نشده است. رها شود؟"_s, this) == KMessageDialog::Yes;
}

void CDlgContractTemplates::preview()
{
    const qint32 contract = contractOf(int(m_contract->number()), type());
    if (contract == 0) {
        g_pDlgWarning->Show(u"قراردادی از این نوع با این کد نیست."_s, this);
        m_contract->setFocus();
        return;
    }
    ContractPrinting::Dialogs dialogs = contractPrintingDialogs(this);
    // What is looked at is the template in use, also where it would be asked for.
    dialogs.chooseLetter = [](const QString &proposed) { return proposed; };
    dialogs.warn = [this, warn = dialogs.warn](ContractPrinting::Trouble trouble) {
        if (trouble != ContractPrinting::Trouble::TemplateMissing || type() != ContractTemplates::letter)
            warn(trouble);
    };
    const KWaitCursor wait;
    ContractPrinting(std::move(dialogs), m_places).print(contract);
}

void CDlgContractTemplates::check()
{
    QString findings;
    {
        const KWaitCursor wait;
        findings = TemplateFindings::inWords(current().file, type());
    }
    g_pDlgMessage->Show(findings, this);
}

void CDlgContractTemplates::goBack()
{
    const qint32 id = m_versions->currentKey();
    const int contractType = type();
    if (id > 0)
        change(m_seen, [&](qint32 seen) { ContractTemplates::goBack(contractType, id, seen); });
}

void CDlgContractTemplates::useSupplied()
{
    const int contractType = type();
    const QString question = u"«%1» از این پس از قالب همراه برنامه چاپ شود؟ قالب کنونی نگه داشته می‌شود."_s.arg(typeName(contractType));
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes)
        change(m_seen, [&](qint32 seen) { ContractTemplates::useSupplied(contractType, seen); });
}

void CDlgContractTemplates::reject()
{
    if (mayDropEditing())
        KDialog::reject();
}
