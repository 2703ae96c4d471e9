// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/CDlgRecordEditor.h"

#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/forms/FormTexts.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookSizes.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>

using namespace Qt::StringLiterals;

CDlgRecordEditor::CDlgRecordEditor(int key, EditorMode mode, QWidget *parent)
    : KDialog(parent)
    , m_key(key)
    , m_mode(mode)
{
    buildFrame();
    // Shows the whole first page where the screen allows it; later the size is as the user left it.
    resize(QSize(LookSizes::scaled(1366), LookSizes::scaled(768)).boundedTo(screen()->availableSize()));
}

void CDlgRecordEditor::buildFrame()
{
    m_tabs = new KTabPageButtons(this);
    m_active = new QCheckBox(u"فعال"_s, this);
    m_active->setEnabled(!isShowMode());
    m_buttons = createButtons();

    m_unsaved = new KChip(KChip::Kind::Warn, u"ذخیره نشده"_s, this);
    m_unsaved->hide();
    m_tabs->addAtEnd(m_unsaved);

    setContent(m_tabs, m_buttons, Content::Fills);
    m_commands = new QHBoxLayout;
    m_commands->setSpacing(LookSizes::unit);
    footer()->addWidget(m_active);
    footer()->addSpacing(LookSizes::unit);
    footer()->addLayout(m_commands);
    m_lastCommand = m_active;
    m_unarchive = addCommand(u"برگشت از بايگاني"_s, [this] { unarchive(); });
    m_lastCommand = m_active;
}

void CDlgRecordEditor::offerHistory()
{
    if (m_mode != EditorMode::New)
        HistoryButton::addTo(this, footer(), m_columns->GetTableName(), m_key);
}

void CDlgRecordEditor::typedWorkChanged(bool typed)
{
    m_unsaved->setVisible(typed);
}

QPushButton *CDlgRecordEditor::addCommand(const QString &caption, const std::function<void()> &work)
{
    auto *button = new QPushButton(caption, this);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, work] { KErrorBoundary::guarded(this, work); });
    // "برگشت از بايگاني", which most records do not show, stays after the window's own.
    m_commands->insertWidget(qMax(0, m_commands->count() - 1), button);
    setTabOrder(m_lastCommand, button);
    m_lastCommand = button;
    return button;
}

int CDlgRecordEditor::addPage(KDialogTabPage *page, const QString &title)
{
    const int index = m_tabs->addPage(page, title);
    connect(page, &KDialogTabPage::frontRequested, m_tabs, [this, index] { m_tabs->setCurrentIndex(index); });
    return index;
}

void CDlgRecordEditor::addFilesPage(CTblFileDocs::Scope scope, int recordKind, const QString &title)
{
    auto *files = new CDlgFileDocs(scope, m_tabs);
    files->bind(recordKind, m_key);
    files->setReadOnly(isShowMode());
    addPage(files, title);
}

void CDlgRecordEditor::leaveOnlyWayBack()
{
    for (QAbstractButton *button : m_buttons->buttons()) {
        if (m_buttons->buttonRole(button) != QDialogButtonBox::AcceptRole) {
            button->setText(u"بازگشت"_s);
            continue;
        }
        // If merely hidden, the first button of the row would still get the focus, and Tab would end there.
        m_buttons->removeButton(button);
        delete button;
    }
}

void CDlgRecordEditor::showState(int status, int archiveUserID)
{
    showState(status, archiveUserID, archiveUserID != 0 && GetDBSetting()->IsClosedDB());
}

void CDlgRecordEditor::showState(int status, int archiveUserID, bool closed)
{
    m_active->setChecked(status == 0);
    m_unarchive->setVisible(archiveUserID != 0 && !closed);
}

int CDlgRecordEditor::chosenStatus() const
{
    return m_active->isChecked() ? 0 : 1;
}

bool CDlgRecordEditor::confirmDoubtsOf(const QList<EditorTabPage *> &pages)
{
    QStringList sentences;
    EditorTabPage *firstPage = nullptr;
    QWidget *firstField = nullptr;
    for (EditorTabPage *page : pages) {
        for (const KForm::Problem &doubt : page->doubts()) {
            sentences.append(doubt.message);
            firstPage = firstPage ? firstPage : page;
            firstField = firstField ? firstField : doubt.widget;
        }
    }
    if (!firstPage)
        return true;
    Q_EMIT firstPage->frontRequested();
    sentences.append(u"مطمئن هستید؟"_s);
    if (g_pDlgYesNo->Ask(sentences.join(u'\n'), this) != KMessageDialog::No)
        return true;
    firstPage->goTo(firstField);
    return false;
}

// A second press, or a key held down, while the first is still at work or has saved already, is none.
bool CDlgRecordEditor::OnOK()
{
    if (isShowMode() || m_saving || m_saved)
        return false;
    const QScopedValueRollback saving(m_saving, true);
    m_opened.forgetAnswers();
    // Whatever fails, what was typed stays in the window.
    KErrorBoundary::guarded(this, [this] {
        OfficeClosing::requireOpen();
        try {
            m_saved = validatePages() && saveOrAsk();
        } catch (const RecordCodes::Refused &refused) {
            refuseCode(refused.userMessage());
        }
    });
    if (m_saved)
        saved();
    return m_saved;
}

// Each answer is about what was shown: a further change meanwhile asks anew.
bool CDlgRecordEditor::saveOrAsk()
{
    for (;;) {
        try {
            save();
            return true;
        } catch (const GoneBack &) {
            return false;
        } catch (const RowChanged &changed) {
            if (changed.kind() == RowChanged::Kind::Gone)
                return saveInPlaceOf(changed);
            if (changed.kind() != RowChanged::Kind::Conflict)
                throw;
            if (!takeAnswer(changed))
                return false;
        }
    }
}

bool CDlgRecordEditor::takeAnswer(const RowChanged &conflict)
{
    const auto answer = CDlgRowConflict::ask(
        conflict, *m_columns, [this](const QString &column) { return captionOf(column); },
        [this](const QString &column, const QVariant &value) { return textOf(column, value); }, this);
    if (answer == CDlgRowConflict::Answer::GoBack) {
        goToField(conflict.conflicts().constFirst().column);
        return false;
    }
    m_opened.answer(conflict.conflicts(), answer == CDlgRowConflict::Answer::TakeTheirs);
    return true;
}

bool CDlgRecordEditor::saveInPlaceOf(const RowChanged &gone)
{
    if (!KSecurity::IsGranted(rightsForm(), KSecurity::Write))
        throw gone;
    const QString question = gone.userMessage() + u'\n'
        + u"آیا آنچه در این پنجره است به عنوان %1 جدید، با کد تازه، ذخیره شود؟ پرونده‌های پیوست همراه آن حذف شده‌اند و باز نمی‌گردند."_s.arg(recordName());
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::No)
        return false;
    m_key = saveAsNew();
    m_refresh = true;
    return true;
}

QString CDlgRecordEditor::captionOf(const QString &column) const
{
    if (column == u"iStatus"_s)
        return m_active->text();
    for (const EditorTabPage *page : m_pages) {
        if (const QString caption = page->entryOf(column).caption; !caption.isEmpty())
            return caption;
    }
    return {};
}

std::optional<QString> CDlgRecordEditor::textOf(const QString &column, const QVariant &value) const
{
    if (column == u"iStatus"_s)
        return value.toInt() == 0 ? u"بله"_s : u"خیر"_s;
    for (const EditorTabPage *page : m_pages) {
        if (auto text = page->form() ? FormTexts::text(*page->form(), column, value) : std::nullopt)
            return text;
    }
    return std::nullopt;
}

void CDlgRecordEditor::goToField(const QString &column)
{
    for (EditorTabPage *page : m_pages) {
        if (QWidget *control = page->entryOf(column).control)
            return page->goTo(control);
    }
}

void CDlgRecordEditor::refuseCode(const QString &why)
{
    g_pDlgWarning->Show(why, this);
}

void CDlgRecordEditor::unarchive()
{
    if (!mayDropTypedWork())
        return;
    try {
        if (!takeOutOfArchive())
            return;
    } catch (const RowChanged &changed) {
        g_pDlgWarning->Show(changed.userMessage(), this);
    }
    m_refresh = true;
    cancel();
}
