// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KLinesView.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

#include <functional>

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/ColumnWidths.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/ListLook.h"
#include "suite/utility/lists/NumberDelegate.h"
#include "suite/utility/values/Money.h"

namespace {

constexpr double largestCount = 999999999;
constexpr int countDecimals = 4;
constexpr int entryFrame = 12;                  // what an entry line needs round its text
constexpr char listOfChoice[] = "listOfChoice"; // the entry cell that a list of what fits belongs to

bool isEnter(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

bool isPlain(const QKeyEvent *event)
{
    return (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

class LineDelegate : public NumberDelegate
{
public:
    LineDelegate(KLinesView *view, std::function<void()> stepOn)
        : NumberDelegate(view)
        , m_view(view)
        , m_stepOn(std::move(stepOn))
    {
    }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        const KLinesModel::Column &column = m_view->linesModel()->columns().at(index.column());
        QWidget *editor = column.kind == KLinesModel::Kind::Choice ? makeChoice(column, parent) : makeEdit(column, parent);
        nameControl(editor, column.title);
        return editor;
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (auto *combo = qobject_cast<QComboBox *>(editor)) {
            combo->setCurrentIndex(combo->findData(index.data(KLinesModel::KeyRole)));
            combo->setEditText(index.data(Qt::EditRole).toString());
            combo->lineEdit()->selectAll();
            return;
        }
        auto *edit = static_cast<KEdit *>(editor);
        if (edit->kind() == KEdit::Kind::Text)
            edit->setText(index.data(Qt::EditRole).toString());
        else if (const double number = index.data(Qt::EditRole).toDouble(); !IsEquals(number, 0))
            edit->setNumber(number);
        edit->selectAll();
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        if (const auto *combo = qobject_cast<QComboBox *>(editor)) {
            model->setData(index, combo->currentText());
            return;
        }
        const auto *edit = static_cast<KEdit *>(editor);
        // What is out of range stays as it was typed: the window reports it and does not change the number.
        if (edit->kind() == KEdit::Kind::Text || !edit->isEntryValid())
            model->setData(index, edit->text());
        else
            model->setData(index, edit->number());
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched->property(listOfChoice).isValid())
            return eventOfList(watched, event);
        auto *editor = qobject_cast<QWidget *>(watched);
        if (editor && event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            if (isEnter(key) && isPlain(key)) {
                take(editor);
                m_stepOn();
                return true;
            }
            if (isEnter(key)) {
                // Ctrl+Enter is the window's, but what was typed belongs to what it saves.
                take(editor);
                QCoreApplication::postEvent(m_view, new QKeyEvent(QEvent::KeyPress, key->key(), key->modifiers()));
                return true;
            }
        }
        return QStyledItemDelegate::eventFilter(watched, event);
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        NumberDelegate::initStyleOption(option, index);
        if (index.data(KListModel::LeftToRightRole).toBool())
            option->direction = Qt::LeftToRight;
    }

    bool isNumber(const QModelIndex &index) const override { return index.data(KListModel::LeftToRightRole).toBool(); }

private:
    // Enter in the list of what fits takes over what is marked there, and continues as Enter in the entry line does.
    bool eventOfList(QObject *list, QEvent *event)
    {
        if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            auto *editor = list->property(listOfChoice).value<QWidget *>();
            if (isEnter(key) && isPlain(key)) {
                takeMarked(static_cast<QAbstractItemView *>(list), static_cast<QComboBox *>(editor));
                take(editor);
                m_stepOn();
                return true;
            }
        }
        return false;
    }

    void takeMarked(QAbstractItemView *list, QComboBox *editor)
    {
        if (const QModelIndex marked = list->currentIndex(); marked.isValid())
            editor->setEditText(marked.data().toString());
        list->hide();
    }

    void take(QWidget *editor)
    {
        Q_EMIT commitData(editor);
        Q_EMIT closeEditor(editor, NoHint);
    }

    QWidget *makeEdit(const KLinesModel::Column &column, QWidget *parent) const
    {
        auto *edit = new KEdit(column.kind == KLinesModel::Kind::Text ? KEdit::Kind::Text : KEdit::Kind::Money, parent);
        edit->setFrame(false);
        if (column.kind == KLinesModel::Kind::Text && column.maxLength > 0)
            edit->setMaxLength(column.maxLength);
        if (column.kind == KLinesModel::Kind::Number) {
            // A quantity: as percentages are shown, without needless decimals, but without their bound.
            edit->setKind(KEdit::Kind::Percent);
            edit->setDecimals(countDecimals);
            edit->setRange(0, largestCount);
        }
        return edit;
    }

    QWidget *makeChoice(const KLinesModel::Column &column, QWidget *parent) const
    {
        auto *combo = new QComboBox(parent);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setFrame(false);
        for (const KLinesModel::Choice &choice : column.choices)
            combo->addItem(choice.text, choice.key);
        combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
        combo->completer()->setFilterMode(Qt::MatchContains);
        QAbstractItemView *list = combo->completer()->popup();
        list->setProperty(listOfChoice, QVariant::fromValue<QWidget *>(combo));
        list->installEventFilter(const_cast<LineDelegate *>(this));
        // At the cell's side also while it is empty.
        combo->lineEdit()->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
        return combo;
    }

    KLinesView *m_view;
    std::function<void()> m_stepOn;
};

}

KLinesView::KLinesView(KLinesModel *lines, QWidget *parent)
    : QTableView(parent)
    , m_lines(lines)
{
    setLayoutDirection(Qt::RightToLeft);
    setModel(lines);
    setItemDelegate(new LineDelegate(this, [this] { stepOn(); }));
    ListLook::apply(this);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed | AnyKeyPressed);
    setVerticalScrollMode(ScrollPerPixel);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setFixedWidth(fontMetrics().averageCharWidth() * 5);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(qMax(ListLook::rowHeight(fontMetrics()), fontMetrics().height() + entryFrame));
}

bool KLinesView::isEntryCell(int column) const
{
    return m_lines->columns().at(column).kind != KLinesModel::Kind::Computed;
}

void KLinesView::finishEntry()
{
    if (state() != EditingState)
        return;
    // Leaving the entry line is what takes its entry.
    setFocus(Qt::OtherFocusReason);
    if (QWidget *editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void KLinesView::goTo(int row, int column)
{
    const QModelIndex index = m_lines->index(row, column);
    setCurrentIndex(index);
    scrollTo(index);
    setFocus(Qt::OtherFocusReason);
}

void KLinesView::addLine()
{
    if (m_lines->isReadOnly())
        return;
    finishEntry();
    const int row = currentIndex().isValid() ? currentIndex().row() + 1 : m_lines->rowCount();
    m_lines->insertLine(row);
    goTo(row, 0);
}

void KLinesView::removeCurrentLine()
{
    const QModelIndex current = currentIndex();
    if (m_lines->isReadOnly() || !current.isValid())
        return;
    finishEntry();
    m_lines->removeLine(current.row());
    // There is always a line to write into.
    if (m_lines->rowCount() == 0)
        m_lines->insertLine(0);
    goTo(qMin(current.row(), m_lines->rowCount() - 1), 0);
}

void KLinesView::stepOn()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid()) {
        leave();
        return;
    }
    const int row = current.row();
    const bool isLast = row == m_lines->rowCount() - 1;
    if (isLast && m_lines->isLineEmpty(row) && row > 0) {
        leave();
        return;
    }
    for (int column = current.column() + 1; column < m_lines->columnCount(); ++column) {
        if (isEntryCell(column)) {
            goTo(row, column);
            return;
        }
    }
    if (isLast && (m_lines->isReadOnly() || m_lines->isLineEmpty(row))) {
        leave();
        return;
    }
    if (isLast)
        m_lines->insertLine(row + 1);
    goTo(row + 1, 0);
}

// As Enter does in any field of a form: the window knows where to go.
void KLinesView::leave()
{
    setFocus(Qt::OtherFocusReason);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(parentWidget(), &enter);
}

void KLinesView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    if (isEnter(event)) {
        if (isPlain(event))
            stepOn();
        else
            event->ignore();
    } else if (event->key() == Qt::Key_Insert && isPlain(event)) {
        addLine();
    } else if (event->key() == Qt::Key_Delete && isPlain(event)) {
        removeCurrentLine();
    } else if (event->key() == Qt::Key_Backspace && current.isValid() && !m_lines->isReadOnly()) {
        if (isEntryCell(current.column()))
            m_lines->setCell(current.row(), current.column(), {});
    } else if (event->key() == Qt::Key_F4 && current.isValid()) {
        edit(current, EditKeyPressed, event);
    } else {
        QTableView::keyPressEvent(event);
    }
}

bool KLinesView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool onPick = index.isValid() && m_lines->columns().at(index.column()).kind == KLinesModel::Kind::Pick;
    if (!onPick)
        return QTableView::edit(index, trigger, event);
    if (m_lines->isReadOnly())
        return false;
    bool wanted = trigger == DoubleClicked || trigger == EditKeyPressed;
    if (trigger == AnyKeyPressed && event && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        wanted = key == Qt::Key_F4 || key == Qt::Key_Space;
    }
    if (wanted) {
        // Opened when the key or click is over: another window comes up.
        QTimer::singleShot(0, this, [this, row = index.row(), column = index.column()] { Q_EMIT pickRequested(row, column); });
    }
    return wanted;
}

void KLinesView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    if (!currentIndex().isValid() && m_lines->rowCount() > 0)
        setCurrentIndex(m_lines->index(0, 0));
}

void KLinesView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void KLinesView::fitColumns()
{
    const double unit = fontMetrics().averageCharWidth() / 4.0;
    QVector<ColumnWidths::Column> wishes;
    for (int i = 0; i < m_lines->columnCount(); ++i)
        wishes.append({m_lines->columns().at(i).width * unit, double(ListLook::titleWidth(*horizontalHeader(), i))});
    const QVector<int> widths = ColumnWidths::shared(wishes, viewport()->width());
    for (int i = 0; i < widths.size(); ++i)
        setColumnWidth(i, widths.at(i));
}
