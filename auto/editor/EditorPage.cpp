// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/EditorPage.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/forms/FormTexts.h"

EditorTabPage::EditorTabPage(EditorMode mode, const QString &title, QWidget *parent)
    : KDialogTabPage(parent)
    , m_mode(mode)
{
    setTitle(title);
}

void EditorTabPage::goTo(QWidget *field)
{
    Q_EMIT frontRequested();
    field->setFocus(Qt::TabFocusReason);
}

EditorTabPage::Entry EditorTabPage::entryOf(const QString &column) const
{
    const QString caption = form() ? FormTexts::caption(*form(), column) : QString();
    return caption.isEmpty() ? furtherEntries().value(column) : Entry{caption, form()->control(column)};
}

bool EditorTabPage::refuse(const QString &message, QWidget *field)
{
    Q_EMIT frontRequested();
    g_pDlgWarning->Show(message, this);
    goTo(field);
    return false;
}

bool EditorTabPage::refuseEntry(const KForm::Problem &problem)
{
    return refuse(problem.widget->accessibleName() + u' ' + problem.message, problem.widget);
}
