// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListCommands.h"

#include "suite/utility/frame/ActionHindrance.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int groupGap = LookSizes::sideGap - LookSizes::unit; // besides the gap between any two

// Looks like one that cannot be used, though it can: it then says why.
QIcon menuIcon(const KListCommand &command, bool hindered)
{
    if (hindered)
        return LookIcons::icon(command.icon, HostColors::Role::Disabled);
    return command.isRemoving() ? LookIcons::icon(command.icon, HostColors::Role::Danger) : LookIcons::icon(command.icon);
}

}

KListCommands::KListCommands(std::vector<KListCommand> commands, Surroundings around, QWidget *page)
    : QWidget(page)
    , m_around(std::move(around))
    , m_line(new QHBoxLayout(this))
{
    m_line->setContentsMargins(0, 0, 0, 0);
    m_line->setSpacing(LookSizes::unit);
    for (KListCommand &command : commands)
        add(std::move(command));
    m_line->addStretch(1);
    LookMarks::setTall(this);
    connect(m_around.list, &KExtListCtrl::rowMenuRequested, this, &KListCommands::showRowMenu);
    showEntries();
}

KListCommands::~KListCommands() = default;

void KListCommands::add(KListCommand command)
{
    Entry entry;
    const bool inMenuOnly = command.options & KListCommand::InRowMenu;
    entry.inLine = !inMenuOnly && (!m_around.searchRow || !(command.options & KListCommand::BesideSearch));
    QHBoxLayout *place = entry.inLine || inMenuOnly ? m_line : m_around.searchRow;
    entry.group = (m_entries.empty() ? 0 : m_entries.back().group) + (command.options & KListCommand::StartsGroup ? 1 : 0);
    entry.button = new KCommandButton(LookIcons::icon(command.icon), command.caption, place == m_line ? this : place->parentWidget());
    // Enter presses the button that has the focus.
    entry.button->setAutoDefault(true);
    LookMarks::setTall(entry.button);
    if (entry.inLine)
        place->addSpacerItem(entry.gap = new QSpacerItem(0, 0));
    place->addWidget(entry.button);
    if (command.options & KListCommand::PrintsList) {
        entry.menu = m_around.makePrintMenu(this);
        m_line->addWidget(entry.menu);
    }
    connect(entry.button, &QPushButton::clicked, this, [this, run = command.run] { m_around.guard(run); });
    if (!command.shortcut.isEmpty())
        addShortcut(command, entry.button);
    entry.offered = !(command.options & KListCommand::NotDisplayed);
    entry.command = std::move(command);
    m_entries.push_back(std::move(entry));
}

void KListCommands::addShortcut(const KListCommand &command, KCommandButton *button)
{
    // Delete belongs to the entry line while one has the focus, so it acts on the list alone.
    QWidget *owner = command.isRemoving() ? m_around.list : parentWidget();
    auto *shortcut = new QShortcut(command.shortcut, owner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [this, id = command.id] { run(id); });
    button->setShortcutTip(command.shortcut);
}

// Before the stretch.
void KListCommands::buildMore()
{
    m_more = new KCommandButton(LookIcons::icon(u":/icons/more.svg"_s), u"بیشتر"_s, this);
    m_more->setAutoDefault(true);
    LookMarks::setTall(m_more);
    m_line->insertWidget(m_line->count() - 1, m_more);
    const auto last = std::find_if(m_entries.crbegin(), m_entries.crend(), [](const Entry &entry) { return entry.inLine; });
    setTabOrder(last->menu ? last->menu : last->button, m_more);
    m_moreMenu = new CommandMenu(m_more);
    m_moreMenu->setAccessibleName(m_more->accessibleName());
    m_moreMenu->setToolTipsVisible(true);
    // Not set as the button's menu: the style would draw an arrow beside the dots.
    connect(m_more, &QPushButton::clicked, this, [this] {
        fillMore();
        m_moreMenu->popup(m_more->mapToGlobal(QPoint(0, -m_moreMenu->sizeHint().height())));
    });
}

void KListCommands::setMode(bool changeBlocked, bool select)
{
    bool hasRowCommands = false;
    for (Entry &entry : m_entries) {
        const int options = entry.command.options;
        entry.offered = !(options & KListCommand::NotDisplayed) && !(changeBlocked && (options & KListCommand::HiddenInReadOnly))
            && !(select && (options & KListCommand::HiddenInSelect));
        entry.button->setHindrance(hindrance(entry.command));
        // In select mode the window's own button is what it is there for.
        const bool isPrimary = !select && &entry.command == adding();
        LookMarks::setButton(entry.button, isPrimary ? LookMarks::Button::Primary : LookMarks::Button::Normal);
        hasRowCommands = hasRowCommands || (entry.offered && (options & KListCommand::NeedsRow));
    }
    m_around.list->setRowMenuOffered(hasRowCommands);
    arrange();
    updateGeometry();
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

const KListCommands::Entry *KListCommands::entry(QStringView id) const
{
    const auto found = std::find_if(m_entries.cbegin(), m_entries.cend(), [id](const Entry &entry) { return entry.command.id == id; });
    return found == m_entries.cend() ? nullptr : &*found;
}

QPushButton *KListCommands::button(QStringView id) const
{
    const Entry *found = entry(id);
    return found ? found->button : nullptr;
}

QPushButton *KListCommands::moreButton() const
{
    return m_more;
}

bool KListCommands::isOffered(QStringView id) const
{
    const Entry *found = entry(id);
    return found && found->offered;
}

QList<const QPushButton *> KListCommands::withheld() const
{
    QList<const QPushButton *> buttons;
    for (const Entry &entry : m_entries) {
        if (!entry.offered)
            buttons.append(entry.button);
    }
    return buttons;
}

bool KListCommands::run(QStringView id) const
{
    const Entry *found = entry(id);
    if (!found || !found->offered || !found->button->isEnabled())
        return false;
    found->button->click();
    return true;
}

const KListCommand *KListCommands::adding() const
{
    const auto found =
        std::find_if(m_entries.cbegin(), m_entries.cend(), [](const Entry &entry) { return entry.offered && entry.command.isAdding(); });
    return found == m_entries.cend() ? nullptr : &found->command;
}

// before: the entry before it in the line; null for the first.
int KListCommands::widthOf(const Entry &entry, const Entry *before) const
{
    int width = entry.button->sizeHint().width();
    if (entry.menu)
        width += m_line->spacing() + entry.menu->sizeHint().width();
    if (before)
        width += m_line->spacing() + (before->group == entry.group ? 0 : groupGap);
    return width;
}

int KListCommands::fullWidth() const
{
    int width = 0;
    const Entry *before = nullptr;
    for (const Entry &entry : m_entries) {
        if (!entry.offered || !entry.inLine)
            continue;
        width += widthOf(entry, before);
        before = &entry;
    }
    return width;
}

// As many as fit, from the first; once one is left out, so are all behind it. Without a place yet, all fit.
void KListCommands::arrange()
{
    const bool allFit = !m_hasPlace || fullWidth() <= width();
    if (!allFit && !m_more)
        buildMore();
    int left = allFit ? width() : width() - m_line->spacing() - m_more->sizeHint().width();
    bool isFull = false;
    const Entry *before = nullptr;
    for (Entry &entry : m_entries) {
        if (!entry.offered || !entry.inLine)
            continue;
        left -= widthOf(entry, before);
        before = &entry;
        isFull = isFull || (!allFit && left < 0);
        entry.fits = !isFull;
    }
    showEntries();
}

void KListCommands::showEntries()
{
    const QWidget *focused = window()->focusWidget();
    bool losesFocus = false;
    bool hasMore = false;
    bool hasMoved = false;
    const Entry *before = nullptr;
    for (const Entry &entry : m_entries) {
        const bool isShown = entry.offered && !entry.inMenuOnly() && (entry.fits || !entry.inLine);
        losesFocus = losesFocus || (!isShown && focused && (focused == entry.button || focused == entry.menu));
        entry.button->setVisible(isShown);
        if (entry.menu)
            entry.menu->setVisible(isShown);
        hasMore = hasMore || (entry.offered && entry.inLine && !isShown);
        if (!entry.inLine)
            continue;
        // A gap parts two groups: there is none before the first that is shown.
        const int gap = isShown && before && before->group != entry.group ? groupGap : 0;
        hasMoved = hasMoved || gap != entry.gap->sizeHint().width();
        entry.gap->changeSize(gap, 0);
        before = isShown ? &entry : before;
    }
    if (m_more)
        m_more->setVisible(hasMore);
    if (losesFocus)
        (hasMore ? static_cast<QWidget *>(m_more) : m_around.list)->setFocus(Qt::OtherFocusReason);
    // Not without need: it asks for another layout.
    if (hasMoved)
        m_line->invalidate();
}

void KListCommands::fillMore()
{
    m_moreMenu->clear();
    const Entry *before = nullptr;
    for (const Entry &entry : m_entries) {
        if (!entry.offered || !entry.inLine || entry.fits)
            continue;
        if (before && before->group != entry.group)
            m_moreMenu->addSeparator();
        addAction(m_moreMenu, entry);
        auto *ways = entry.menu ? entry.menu->findChild<QMenu *>() : nullptr;
        if (ways)
            m_moreMenu->addMenu(ways);
        before = &entry;
    }
}

void KListCommands::addAction(QMenu *menu, const Entry &entry) const
{
    QAction *action = menu->addAction(menuIcon(entry.command, entry.button->isHindered()), entry.command.caption, this,
                                      [this, id = entry.command.id] { run(id); });
    // For the eye: the list's own shortcut is what the key presses.
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcut(entry.command.shortcut);
    action->setShortcutVisibleInContextMenu(true);
    ActionHindrance::set(*action, entry.button->isHindered() ? entry.button->toolTip() : QString(), entry.button->toolTip());
    action->setEnabled(entry.button->isEnabled());
    if (entry.command.isOn) {
        action->setCheckable(true);
        m_around.guard([&] { action->setChecked(entry.command.isOn()); });
    }
}

void KListCommands::showRowMenu(const QPoint &place)
{
    if (!m_rowMenu) {
        m_rowMenu = new CommandMenu(m_around.list);
        m_rowMenu->setAccessibleName(KExtListCtrl::rowMenuName());
        m_rowMenu->setToolTipsVisible(true);
    }
    m_rowMenu->clear();
    std::vector<const Entry *> removing;
    for (const Entry &entry : m_entries) {
        if (!entry.offered || !(entry.command.options & KListCommand::NeedsRow))
            continue;
        if (entry.command.isRemoving())
            removing.push_back(&entry);
        else
            addAction(m_rowMenu, entry);
    }
    // The keyboard's way to what a right click on the titles offers.
    if (m_around.list->hasOptionalColumns())
        addColumnMenu();
    if (!removing.empty() && !m_rowMenu->isEmpty())
        m_rowMenu->addSeparator();
    for (const Entry *entry : removing)
        addAction(m_rowMenu, *entry);
    m_rowMenu->popup(place);
    // By the keyboard one goes on with the keyboard.
    m_rowMenu->setActiveAction(m_rowMenu->actions().constFirst());
}

void KListCommands::addColumnMenu()
{
    if (!m_columnMenu) {
        m_columnMenu = new QMenu(KExtListCtrl::optionalColumnsName(), m_rowMenu);
        m_columnMenu->setIcon(LookIcons::icon(u":/icons/table.svg"_s));
    }
    m_columnMenu->clear();
    m_around.list->addOptionalColumnsTo(m_columnMenu);
    m_rowMenu->addSeparator();
    m_rowMenu->addMenu(m_columnMenu);
}

// With all commands in sight.
QSize KListCommands::sizeHint() const
{
    return {fullWidth(), m_line->sizeHint().height()};
}

// Any of them alone: the others are in the menu then.
QSize KListCommands::minimumSizeHint() const
{
    int width = 0;
    for (const Entry &entry : m_entries) {
        if (entry.offered && entry.inLine)
            width = qMax(width, widthOf(entry, nullptr));
    }
    return {width, m_line->minimumSize().height()};
}

bool KListCommands::event(QEvent *event)
{
    // A button's text, icon or font has changed.
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void KListCommands::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_hasPlace = true;
    arrange();
}
