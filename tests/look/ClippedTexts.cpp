// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/ClippedTexts.h"

#include "tests/look/WindowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

// Widths are rounded on the way from the font to the widget.
constexpr int rounding = 1;

// Qt keeps these to its own classes.
struct ComboAccess : QComboBox
{
    static QStyleOptionComboBox option(const QComboBox &combo)
    {
        QStyleOptionComboBox result;
        (combo.*&ComboAccess::initStyleOption)(&result);
        return result;
    }
};

struct LineAccess : QLineEdit
{
    static QStyleOptionFrame option(const QLineEdit &line)
    {
        QStyleOptionFrame result;
        (line.*&LineAccess::initStyleOption)(&result);
        return result;
    }
};

struct HeaderAccess : QHeaderView
{
    static int neededBy(const QHeaderView &header, int section)
    {
        return (header.*&HeaderAccess::sectionSizeFromContents)(section).width();
    }
};

class Search
{
public:
    QStringList faults;

    void look(QWidget &widget)
    {
        if (auto *label = qobject_cast<QLabel *>(&widget))
            lookAtLabel(*label);
        else if (auto *button = qobject_cast<QAbstractButton *>(&widget))
            lookAtButton(*button);
        else if (auto *box = qobject_cast<QGroupBox *>(&widget))
            lookAtTitle(*box);
        else if (auto *combo = qobject_cast<QComboBox *>(&widget))
            lookAtCombo(*combo);
        else if (auto *line = qobject_cast<QLineEdit *>(&widget))
            lookAtLine(*line);
        else if (auto *tabs = qobject_cast<QTabBar *>(&widget))
            lookAtTabs(*tabs);
        else if (auto *menus = qobject_cast<QMenuBar *>(&widget))
            lookAtMenus(*menus);
        else if (auto *progress = qobject_cast<QProgressBar *>(&widget))
            require(*progress, progress->isTextVisible() ? progress->text() : QString(), widthOf(*progress, progress->text()), progress->width());
        else if (auto *view = qobject_cast<QAbstractItemView *>(&widget))
            lookAtView(*view);
    }

private:
    static int widthOf(const QWidget &widget, const QString &text) { return widget.fontMetrics().horizontalAdvance(text); }

    void add(const QWidget &widget, const QString &text, int needed, int has, const char *what = "wide")
    {
        faults.append(u"%1 cuts \"%2\": %3 px %4, needs %5"_s.arg(WindowParts::name(widget), WindowParts::shortened(text))
                          .arg(has)
                          .arg(QLatin1String(what))
                          .arg(needed));
    }

    void require(const QWidget &widget, const QString &text, int needed, int has, const char *what = "wide")
    {
        if (!text.isEmpty() && needed > has + rounding)
            add(widget, text, needed, has, what);
    }

    // What may end in "…" when the pointer is told the whole.
    void requireOrTip(QWidget &widget, QWidget &under, const QPoint &place, const QString &text, int needed, int has)
    {
        if (text.isEmpty() || needed <= has + rounding)
            return;
        if (WindowParts::isFigure(text) || !WindowParts::tipAt(under, place).contains(text.trimmed()))
            add(widget, text, needed, has);
    }

    void lookAtLabel(QLabel &label)
    {
        if (label.text().isEmpty())
            return;
        if (label.inherits("ElidedLabel")) {
            const int has = label.contentsRect().width();
            requireOrTip(label, label, label.rect().center(), label.text(), widthOf(label, label.text()), has);
            require(label, label.text(), label.fontMetrics().height(), label.height(), "high");
        } else if (label.wordWrap()) {
            // The longest word, and all lines.
            require(label, label.text(), label.minimumSizeHint().width(), label.width());
            require(label, label.text(), label.heightForWidth(label.width()), label.height(), "high");
        } else {
            require(label, label.text(), label.sizeHint().width(), label.width());
            require(label, label.text(), label.sizeHint().height(), label.height(), "high");
        }
    }

    void lookAtButton(QAbstractButton &button)
    {
        const QString text = button.text().remove(u'&');
        const auto *tool = qobject_cast<QToolButton *>(&button);
        if (text.isEmpty() || (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull()))
            return;
        const bool hasBox = qobject_cast<QCheckBox *>(&button) || qobject_cast<QRadioButton *>(&button);
        const int icon = button.icon().isNull() ? 0 : button.iconSize().width() + 4;
        // Bold, as the preset button is drawn, and half of a padding at each side.
        QFont bold = button.font();
        bold.setBold(true);
        const int needed = hasBox ? button.sizeHint().width() : QFontMetrics(bold).horizontalAdvance(text) + icon + 8;
        require(button, text, needed, button.width());
        require(button, text, button.fontMetrics().height(), button.height(), "high");
    }

    void lookAtTitle(QGroupBox &box)
    {
        QFont bold = box.font();
        bold.setBold(true);
        require(box, box.title(), QFontMetrics(bold).horizontalAdvance(box.title()) + 16, box.width());
    }

    void lookAtCombo(QComboBox &combo)
    {
        const QStyleOptionComboBox option = ComboAccess::option(combo);
        const QRect room = combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
        const int icon = combo.itemIcon(combo.currentIndex()).isNull() ? 0 : combo.iconSize().width() + 4;
        requireOrTip(combo, combo, combo.rect().center(), combo.currentText(), widthOf(combo, combo.currentText()) + icon, room.width());
        require(combo, combo.currentText(), combo.fontMetrics().height(), room.height(), "high");
    }

    void lookAtLine(QLineEdit &line)
    {
        const QStyleOptionFrame option = LineAccess::option(line);
        const QRect room = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line).marginsRemoved(line.textMargins());
        // The base class leaves two pixels at each side of the text.
        const int has = room.width() - 4;
        const bool isEmpty = line.text().isEmpty();
        const QString text = isEmpty ? line.placeholderText() : line.displayText();
        // What is being typed scrolls.
        if (line.hasFocus() && !WindowParts::isFigure(text))
            return;
        requireOrTip(line, line, line.rect().center(), text, widthOf(line, text), has);
        require(line, text, line.fontMetrics().height(), room.height(), "high");
    }

    void lookAtTabs(QTabBar &tabs)
    {
        for (int tab = 0; tab < tabs.count(); ++tab) {
            const QString text = tabs.tabText(tab).remove(u'&');
            int needed = widthOf(tabs, text);
            for (const QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide}) {
                if (const QWidget *button = tabs.tabButton(tab, side))
                    needed += button->width();
            }
            if (tabs.isTabVisible(tab))
                requireOrTip(tabs, tabs, tabs.tabRect(tab).center(), text, needed, tabs.tabRect(tab).width());
        }
    }

    void lookAtMenus(QMenuBar &menus)
    {
        for (QAction *menu : menus.actions()) {
            const QRect place = menus.actionGeometry(menu);
            const QString text = menu->text().remove(u'&');
            if (menu->isVisible())
                require(menus, text, widthOf(menus, text), place.intersected(menus.rect()).width());
        }
    }

    void lookAtView(QAbstractItemView &view)
    {
        if (auto *tree = qobject_cast<QTreeView *>(&view)) {
            lookAtHeader(*tree->header());
            for (int column = 0; column < tree->header()->count(); ++column)
                lookAtColumn(view, column);
        } else if (auto *header = view.findChild<QHeaderView *>(QString(), Qt::FindDirectChildrenOnly)) {
            // A table has two; only the titles of columns are along the top.
            for (QHeaderView *each : view.findChildren<QHeaderView *>(QString(), Qt::FindDirectChildrenOnly))
                header = each->orientation() == Qt::Horizontal ? each : header;
            if (header->isVisible())
                lookAtHeader(*header);
            for (int column = 0; column < header->count(); ++column)
                lookAtColumn(view, column);
        } else {
            lookAtColumn(view, 0);
        }
    }

    void lookAtHeader(QHeaderView &header)
    {
        if (!header.isVisible() || header.orientation() != Qt::Horizontal)
            return;
        for (int section = 0; section < header.count(); ++section) {
            if (!header.isSectionHidden(section))
                require(header, header.model()->headerData(section, Qt::Horizontal).toString(), HeaderAccess::neededBy(header, section),
                        header.sectionSize(section));
        }
    }

    // The first cell that is cut stands for its column.
    void lookAtColumn(QAbstractItemView &view, int column)
    {
        const QAbstractItemModel *model = view.model();
        if (!model)
            return;
        const qsizetype before = faults.size();
        QModelIndex index = view.indexAt(QPoint(view.viewport()->width() / 2, 2));
        for (int row = index.row(); index.isValid() && row < model->rowCount(index.parent()); ++row) {
            const QModelIndex cell = index.sibling(row, column);
            const QRect place = view.visualRect(cell);
            if (!cell.isValid() || place.top() > view.viewport()->height() || faults.size() > before)
                return;
            lookAtCell(view, cell, place);
        }
    }

    void lookAtCell(QAbstractItemView &view, const QModelIndex &cell, const QRect &place)
    {
        const QString text = cell.data().toString();
        if (text.isEmpty() || place.isEmpty())
            return;
        const int needed = view.sizeHintForIndex(cell).width();
        // A tree tells its row's height by the height of its rows; one that is lower than its letters cuts them.
        require(view, text, view.fontMetrics().height(), place.height(), "high");
        // Where a list scrolls sideways, no tip can be asked for beyond its edge; a figure needs its room there, too.
        const QRect seen = place.intersected(view.viewport()->rect());
        // The mark of the row's menu, which has a tip of its own, may be all that is seen of the last one.
        const bool tellsAll = seen.width() > 2 * place.height();
        if (tellsAll || WindowParts::isFigure(text))
            requireOrTip(view, *view.viewport(), tellsAll ? seen.center() : place.center(), text, needed, place.width());
    }
};

}

QStringList ClippedTexts::in(const QWidget &window)
{
    Search search;
    for (QWidget *widget : WindowParts::of(window))
        search.look(*widget);
    return search.faults;
}
