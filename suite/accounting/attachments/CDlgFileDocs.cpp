// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgFileDocs.h"

#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/db/records/KLookup.h"
#include "suite/accounting/attachments/AttachmentCopy.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/KProcess.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

QString pageTitle(CTblFileDocs::Scope scope)
{
    return scope == CTblFileDocs::Personal ? u"پرونده های شخصی"_s : u"پرونده های عمومی"_s;
}

QVector<KListModel::Row> rowsOf(const QList<CTblFileDocs::FileInfo> &files)
{
    QList<int> users;
    for (const CTblFileDocs::FileInfo &file : files)
        users.append(file.userID);
    const QHash<int, QString> names = KLookup::names<CTblFileDocs>(u"iUserID", users);
    QVector<KListModel::Row> rows;
    for (const CTblFileDocs::FileInfo &file : files) {
        const int number = static_cast<int>(rows.size()) + 1;
        rows.append({file.id,
                     {{QString::number(number), number},
                      {file.name},
                      {shamsiText(file.created.date()), file.created},
                      {names.value(file.userID)}}});
    }
    return rows;
}

}

CDlgFileDocs::CDlgFileDocs(CTblFileDocs::Scope scope, QWidget *parent)
    : KDialogTabPage(parent)
    , m_scope(scope)
{
    setTitle(pageTitle(scope));
    build();
    updateButtons();
}

CDlgFileDocs::~CDlgFileDocs() = default;

void CDlgFileDocs::build()
{
    m_list = new KExtListCtrl;
    m_list->setAccessibleName(title());
    m_list->setColumns({{u"ردیف"_s, Qt::AlignHCenter, 40},
                        {u"نام فایل"_s, Qt::AlignRight, 160},
                        {u"تاریخ"_s, Qt::AlignHCenter, 80, QString(), true},
                        {u"کاربر"_s, Qt::AlignRight, 80}});
    m_list->SetSettingName(u"FileDocs\\List"_s);
    auto *commandLine = new QWidget(this);
    auto *commands = new QHBoxLayout(commandLine);
    commands->setContentsMargins(0, 0, 0, 0);
    commands->setSpacing(LookSizes::unit);
    m_addButton = addButton(commands, u"افزودن"_s);
    m_openButton = addButton(commands, u"باز کردن"_s);
    m_saveButton = addButton(commands, u"ذخیره در"_s);
    m_deleteButton = addButton(commands, u"حذف"_s);
    commands->addStretch();
    m_count = new QLabel;
    auto *card = new KListCard(m_list, this);
    card->addToFoot(m_count);
    auto *cards = new CardStack(this);
    cards->addCard(card, true);
    cards->addCard(commandLine);

    connect(m_addButton, &QPushButton::clicked, this, &CDlgFileDocs::chooseAndAdd);
    connect(m_openButton, &QPushButton::clicked, this, [this] { openFile(m_list->currentKey()); });
    connect(m_saveButton, &QPushButton::clicked, this, &CDlgFileDocs::chooseAndSave);
    connect(m_deleteButton, &QPushButton::clicked, this, [this] { deleteFile(m_list->currentKey()); });
    connect(m_list, &KExtListCtrl::rowActivated, this, [this](int id) { openFile(id); });
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgFileDocs::updateButtons);
}

void CDlgFileDocs::bind(int table, int recordID)
{
    m_table = table;
    m_recordID = recordID;
}

void CDlgFileDocs::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    updateButtons();
}

void CDlgFileDocs::showEvent(QShowEvent *event)
{
    // An error must not leave a show event: the window would stay half shown.
    KErrorBoundary::guarded(this, [this] { fill(); });
    KDialogTabPage::showEvent(event);
}

void CDlgFileDocs::fill()
{
    const int selected = m_list->currentKey();
    m_list->setRows(rowsOf(CTblFileDocs::list(m_table, m_recordID, m_scope, GetDBSetting()->GetUserID())));
    m_list->selectKey(selected);
    m_count->setText(SuiteMessages::count(m_list->count()));
    updateButtons();
}

void CDlgFileDocs::updateButtons()
{
    const bool selected = m_list->currentKey() > 0;
    m_addButton->setHidden(m_readOnly);
    m_deleteButton->setHidden(m_readOnly);
    m_openButton->setEnabled(selected);
    m_saveButton->setEnabled(selected);
    m_deleteButton->setEnabled(selected);
}

void CDlgFileDocs::chooseAndAdd()
{
    const QString path = QFileDialog::getOpenFileName(this, m_addButton->text());
    if (!path.isEmpty())
        addFile(path);
}

void CDlgFileDocs::chooseAndSave()
{
    const int id = m_list->currentKey();
    const QString name = CTblFileDocs::safeFileName(m_list->cellText(m_list->currentRow(), 1));
    const QString path = QFileDialog::getSaveFileName(this, m_saveButton->text(), QDir::home().filePath(name));
    if (!path.isEmpty())
        saveFileAs(id, path);
}

bool CDlgFileDocs::addFile(const QString &path)
{
    if (m_readOnly)
        return false;
    try {
        const KWaitCursor wait;
        const int id =
            CTblFileDocs::addFile(m_table, m_recordID, m_scope, GetDBSetting()->GetUserID(), path);
        fill();
        m_list->selectKey(id);
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        return false;
    }
    return true;
}

bool CDlgFileDocs::saveFileAs(int id, const QString &path)
{
    QString name;
    QByteArray data;
    if (!CTblFileDocs::content(id, GetDBSetting()->GetUserID(), &name, &data))
        return false;
    // Written beside and then put in place, so that a full disk does not cost the file that was there.
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit()) {
        OfficeEvents::noteExport(name, u"فایل پیوست"_s);
        return true;
    }
    g_pDlgWarning->Show(u"فایل در این مسیر ذخیره نشد: %1"_s.arg(QDir::toNativeSeparators(path)), this);
    return false;
}

QString CDlgFileDocs::openFile(int id)
{
    QString name;
    QByteArray data;
    if (!CTblFileDocs::content(id, GetDBSetting()->GetUserID(), &name, &data))
        return {};
    if (AttachmentCopy::isProgram(name)) {
        g_pDlgWarning->Show(u"این فایل یک برنامه است و از اینجا باز نمی شود. در صورت نیاز آن را ذخیره نمایید."_s,
                            this);
        return {};
    }
    const QString path = AttachmentCopy::write(id, name, data);
    if (path.isEmpty()) {
        g_pDlgWarning->Show(u"نسخه موقت فایل ساخته نشد."_s, this);
        return {};
    }
    if (!KProcess::Execute(u"Explorer"_s, path))
        g_pDlgWarning->Show(u"برنامه ای برای باز کردن این فایل پیدا نشد."_s, this);
    return path;
}

bool CDlgFileDocs::deleteFile(int id)
{
    if (m_readOnly || id < 1)
        return false;
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return false;
    GetDBSetting()->RequireOpenDB();
    const bool deleted = CTblFileDocs::deleteFile(id, GetDBSetting()->GetUserID());
    fill();
    return deleted;
}
