// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/CDlgAddMessageText.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/messages/MessageWords.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/WrapLine.h"
#include "suite/utility/values/TextStandard.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Room for the five lines of most texts.
constexpr int textHeight = 132;

}

CDlgAddMessageText::CDlgAddMessageText(qint32 key, QWidget *parent)
    : KDialog(parent)
    , m_edit(m_record, key)
    , m_kind(new KDropDown)
    , m_name(new KEdit)
    , m_text(new KTextArea)
{
    setWindowTitle(key == 0 ? u"متن پیام جدید"_s : u"ویرایش متن پیام"_s);
    SetSettingName(u"MessageTexts\\Editor"_s);
    const bool known = key != 0 && m_record.IsRecordExist(u"iID"_s, key);
    build();
    HistoryButton::addTo(this, footer(), m_record.GetTableName(), key);
    if (known) {
        m_kind->setCurrentIndex(m_kind->findData(m_record.m_sKind));
        m_name->setText(m_record.m_sName);
        m_text->setText(m_record.m_sText);
    }
    // What the fields are belongs to the kind: another kind is another text.
    m_kind->setEnabled(!known);
    kindChosen();
    if (known)
        m_edit.remember([this] { store(); });
    resize(LookSizes::scaled(760), LookSizes::scaled(680));
    m_name->setFocus();
}

CDlgAddMessageText::~CDlgAddMessageText() = default;

void CDlgAddMessageText::build()
{
    for (const MessageKind *kind : MessageKinds::all())
        m_kind->addItem(kind->title, kind->id);
    m_name->setMaxLength(CTblMessageTexts::longestName);
    m_text->setMaxLength(CTblMessageTexts::longestText);
    m_text->setMinimumHeight(LookSizes::scaled(textHeight));
    auto *page = new CardPage(720, this);
    FormGrid *grid = page->addForm({}, FormGrid::Extent::Half);
    addLabelled(grid, u"برای :"_s, m_kind, 2);
    addLabelled(grid, u"نام :"_s, m_name, 2);
    addLabelled(grid, u"متن :"_s, m_text, 4);
    page->cards()->addCard(buildFields());
    page->cards()->addCard(buildPreview());
    setContent(page, createButtons());
    QPushButton *supplied = addButton(footer(), CTblMessageTexts::suppliedName(), u":/icons/refresh.svg"_s);
    connect(supplied, &QPushButton::clicked, this, &CDlgAddMessageText::takeSupplied);
    connect(m_kind, &QComboBox::currentIndexChanged, this, &CDlgAddMessageText::kindChosen);
    connect(m_text, &QPlainTextEdit::textChanged, this, &CDlgAddMessageText::showPreview);
}

QWidget *CDlgAddMessageText::buildFields()
{
    auto *box = new QGroupBox(u"فیلدها"_s, this);
    auto *column = new QVBoxLayout(box);
    m_fields = new QWidget(box);
    new WrapLine(m_fields);
    column->addWidget(m_fields);
    return box;
}

QWidget *CDlgAddMessageText::buildPreview()
{
    auto *box = new QGroupBox(u"پیش‌نمایش"_s, this);
    auto *column = new QVBoxLayout(box);
    m_preview = new QLabel(box);
    m_preview->setTextFormat(Qt::PlainText);
    m_preview->setWordWrap(true);
    m_preview->setAccessibleName(box->title());
    m_preview->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_count = new QLabel(box);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setForegroundRole(HostColors::quietText);
    m_count->setWordWrap(true);
    column->addWidget(m_preview);
    column->addWidget(m_count);
    return box;
}

const MessageKind *CDlgAddMessageText::kind() const
{
    return MessageKinds::of(m_kind->currentData().toString());
}

void CDlgAddMessageText::kindChosen()
{
    // A text that came along gives way to that of the kind; what somebody wrote stays.
    if (kind() && m_edit.isNew() && (m_text->text().isEmpty() || m_text->text() == m_supplied))
        m_text->setText(kind()->suppliedText);
    m_supplied = kind() ? kind()->suppliedText : QString();
    showFields();
    readSample();
    showPreview();
}

void CDlgAddMessageText::showFields()
{
    qDeleteAll(std::exchange(m_fieldButtons, {}));
    if (!kind())
        return;
    for (const MessageField &field : kind()->fields) {
        auto *button = new QPushButton(field.name, m_fields);
        button->setAccessibleName(u"درج "_s + field.name);
        button->setToolTip(field.meaning);
        button->setAutoDefault(false);
        LookMarks::setButton(button, LookMarks::Button::Small);
        connect(button, &QPushButton::clicked, this, [this, name = field.name] { insert(name); });
        m_fields->layout()->addWidget(button);
        button->show();
        setTabOrder(m_fieldButtons.isEmpty() ? static_cast<QWidget *>(m_text) : m_fieldButtons.constLast(), button);
        m_fieldButtons.append(button);
    }
}

// The editor is of use without one, so that a user who may not read such records has the fields as they stand.
void CDlgAddMessageText::readSample()
{
    m_sample.reset();
    m_noSample = u"هنوز موردی برای نمونه نیست؛ فیلدها پر نشده‌اند."_s;
    if (!kind())
        return;
    const KWaitCursor wait;
    KErrorBoundary::guarded(this, [this] {
        if (!MessageKinds::mayWrite(*kind())) {
            m_noSample = u"اجازه دیدن موردی برای نمونه را ندارید؛ فیلدها پر نشده‌اند."_s;
            return;
        }
        const MessageAbout about = kind()->sample(0);
        const QList<PersonMessage> messages = about.key == 0 ? QList<PersonMessage>() : MessageKinds::read(*kind(), {about});
        if (!messages.isEmpty())
            m_sample = messages.constFirst();
    });
}

void CDlgAddMessageText::showPreview()
{
    const QString filled = MessageFilling::filled(m_text->text(), m_sample ? m_sample->values : QHash<QString, QString>());
    m_preview->setText(filled);
    m_count->setText(MessageWords::size(filled) + u"\n"_s + (m_sample ? u"برای %1، %2"_s.arg(m_sample->person, m_sample->about) : m_noSample));
    const QList<MessageFilling::Wrong> wrong = kind() ? MessageFilling::wrong(m_text->text(), kind()->fieldNames()) : QList<MessageFilling::Wrong>();
    FieldNote::of(m_text)->showError(wrong.isEmpty() ? m_text->entryError() : MessageWords::unknownField(wrong.constFirst()));
}

QString CDlgAddMessageText::previewText() const
{
    return m_preview->text();
}

void CDlgAddMessageText::insert(const QString &field)
{
    m_text->insertPlainText(u"{%1}"_s.arg(field));
    m_text->setFocus();
}

void CDlgAddMessageText::takeSupplied()
{
    if (!kind() || m_text->text() == kind()->suppliedText)
        return;
    if (!m_text->text().trimmed().isEmpty() && g_pDlgYesNo->Ask(u"متن همراه برنامه جای این متن را بگیرد؟"_s, this) != KMessageDialog::Yes)
        return;
    m_text->selectAll();
    m_text->insertPlainText(kind()->suppliedText);
    m_text->setFocus();
}

void CDlgAddMessageText::goTo(const QString &column)
{
    if (column == u"sKind")
        return m_kind->setFocus();
    if (column == u"sName")
        return m_name->setFocus();
    m_text->setFocus();
    const QList<MessageFilling::Wrong> wrong = kind() ? MessageFilling::wrong(m_text->text(), kind()->fieldNames()) : QList<MessageFilling::Wrong>();
    if (wrong.isEmpty())
        return;
    QTextCursor cursor = m_text->textCursor();
    cursor.setPosition(static_cast<int>(wrong.constFirst().at));
    cursor.setPosition(static_cast<int>(wrong.constFirst().at + wrong.constFirst().length), QTextCursor::KeepAnchor);
    m_text->setTextCursor(cursor);
}

void CDlgAddMessageText::store()
{
    m_record.m_sKind = m_kind->currentData().toString();
    m_record.m_sName = ConvertToStandard(m_name->text());
    m_record.m_sText = m_text->text().trimmed();
    if (m_edit.isNew()) {
        m_record.m_iUserID = GetDBSetting()->GetUserID();
        m_record.m_dateCreate = GetDBSetting()->GetDBServerDate();
    }
}

bool CDlgAddMessageText::OnOK()
{
    const RowQuestions::Texts texts{
        .caption = [](const QString &column) { return column == u"sName" ? u"نام"_s : column == u"sText" ? u"متن"_s
                                                                                                         : QString(); },
        .goTo = [this](const QString &column) { goTo(column); }};
    const auto settle = [this] {
        KSecurity::forgetRights();
        const KSecurity::Right right = m_edit.isNew() ? KSecurity::Write : KSecurity::Modify;
        if (!KSecurity::IsGranted(u"MessageTexts"_s, right))
            throw KAccountingError(KSecurity::refusalText(u"MessageTexts"_s, right));
        m_record.settle(m_edit.key());
    };
    try {
        return RowQuestions::save(
                   this, m_edit, texts, [this] { store(); }, settle)
            == RowQuestions::Outcome::Saved;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_text->setFocus();
        return false;
    }
}
