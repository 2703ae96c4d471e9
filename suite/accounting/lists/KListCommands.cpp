// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListCommands.h"

#include "suite/utility/frame/KCommandButton.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QShortcut>

namespace {

constexpr int groupGap = 12;

}

KListCommands::KListCommands(std::vector<KListCommand> commands, Surroundings around, QWidget *page)
    : QWidget(page)
    , m_around(std::move(around))
    , m_line(new QHBoxLayout(this))
{
    m_line->setContentsMargins(0, 0, 0, 0);
    for (KListCommand &command : commands)
        add(std::move(command));
    m_line->addStretch(1);
}

void KListCommands::add(KListCommand command)
{
    const bool besideSearch = m_around.searchRow && (command.options & KListCommand::BesideSearch);
    QHBoxLayout *place = besideSearch ? m_around.searchRow : m_line;
    auto *button = new KCommandButton(QIcon(command.icon), command.caption, besideSearch ? place->parentWidget() : this);
    // Enter presses the button that has the focus.
    button->setAutoDefault(true);
    if (command.options & KListCommand::NotDisplayed)
        button->hide();
    QSpacerItem *gap = nullptr;
    if (command.options & KListCommand::StartsGroup)
        place->addSpacerItem(gap = new QSpacerItem(groupGap, 0));
    place->addWidget(button);
    QWidget *menu = command.options & KListCommand::PrintsList ? m_around.makePrintMenu(this) : nullptr;
    if (menu)
        m_line->addWidget(menu);
    connect(button, &QPushButton::clicked, this, [this, run = command.run] { m_around.guard(run); });
    if (!command.shortcut.isEmpty())
        addShortcut(command, button);
    m_entries.push_back({std::move(command), button, menu, gap});
}

void KListCommands::addShortcut(const KListCommand &command, KCommandButton *button)
{
    // Delete belongs to the entry line while one has the focus, so it acts on the list alone.
    QWidget *owner = command.shortcut == QKeySequence(QKeySequence::Delete) ? m_around.list : parentWidget();
    auto *shortcut = new QShortcut(command.shortcut, owner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [button] {
        if (!button->isHidden())
            button->click();
    });
    button->setShortcutTip(command.shortcut);
}

void KListCommands::addAtEnd(QWidget *widget)
{
    m_line->addWidget(widget);
}

void KListCommands::setMode(bool changeBlocked, bool select)
{
    bool isFirst = true;
    for (const Entry &entry : m_entries) {
        const int options = entry.command.options;
        const bool hidden = (options & KListCommand::NotDisplayed) || (changeBlocked && (options & KListCommand::HiddenInReadOnly))
            || (select && (options & KListCommand::HiddenInSelect));
        entry.button->setVisible(!hidden);
        entry.button->setHindrance(hindrance(entry.command));
        if (entry.menu)
            entry.menu->setVisible(!hidden);
        // A gap parts two groups: there is none before the first that is shown.
        if (entry.gap)
            entry.gap->changeSize(hidden || isFirst ? 0 : groupGap, 0);
        isFirst = isFirst && hidden;
    }
    m_line->invalidate();
}

QString KListCommands::hindrance(const KListCommand &command) const
{
    const QString &form = command.needsForm.isEmpty() ? m_around.form : command.needsForm;
    return !command.needs || KSecurity::IsGranted(form, *command.needs) ? QString() : KSecurity::refusalText(form, *command.needs);
}

void KListCommands::setRowSelected(bool selected)
{
    for (const Entry &entry : m_entries) {
        const bool enabled = selected || !(entry.command.options & KListCommand::NeedsRow);
        if (!enabled && parentWidget()->focusWidget() == entry.button)
            m_around.list->setFocus(Qt::OtherFocusReason);
        entry.button->setEnabled(enabled);
    }
}

QPushButton *KListCommands::button(QStringView id) const
{
    for (const Entry &entry : m_entries) {
        if (entry.command.id == id)
            return entry.button;
    }
    return nullptr;
}

bool KListCommands::run(QStringView id) const
{
    QPushButton *found = button(id);
    if (!found || found->isHidden() || !found->isEnabled())
        return false;
    found->click();
    return true;
}
