// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgRecordFiles.h"

#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

CDlgRecordFiles::CDlgRecordFiles(int kind, qint32 recordID, bool readOnly, QWidget *parent)
    : KDialog(parent)
{
    SetSettingName(u"RecordFiles"_s);
    setWindowTitle(u"پرونده‌ها"_s);
    auto *tabs = new KTabPageButtons(this);
    for (const CTblFileDocs::Scope scope : {CTblFileDocs::General, CTblFileDocs::Personal}) {
        auto *files = new CDlgFileDocs(scope, tabs);
        files->bind(kind, recordID);
        files->setReadOnly(readOnly);
        tabs->addPage(files, files->title());
        if (!m_general)
            m_general = files;
    }
    setContent(tabs, createButtons({}, u"بازگشت"_s), Content::Fills);
    resize(LookSizes::scaled(760), LookSizes::scaled(520));
}

CDlgRecordFiles::~CDlgRecordFiles() = default;

void CDlgRecordFiles::show(const QString &form, const QString &title, int kind, qint32 recordID, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(form);
    if (!security.CheckReadSecurity())
        return;
    CDlgRecordFiles dialog(kind, recordID, !KSecurity::IsGranted(form, KSecurity::Modify), parent);
    dialog.setWindowTitle(title);
    dialog.exec();
}
