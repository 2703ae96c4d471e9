// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/CDlgManual.h"

#include "host/manual/ManualContents.h"
#include "host/manual/ManualDocument.h"
#include "host/manual/ManualPaper.h"
#include "host/manual/ManualText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/ReportFile.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

CDlgManual::CDlgManual(QWidget *parent, const ManualPages &pages)
    : KDialog(parent)
    , m_pages(pages)
    , m_search({})
    , m_contents(new ManualContents(m_pages))
    , m_text(new ManualText)
    , m_note(new QLabel)
    , m_layout(new QTimer(this))
{
    setWindowTitle(u"راهنما"_s);
    setWindowFlag(Qt::WindowMinMaxButtonsHint);
    SetSettingName(u"Manual"_s);
    build();
    buildFooter();
    constexpr int letters = 130;
    constexpr int lines = 36;
    resize(fontMetrics().averageCharWidth() * letters, fontMetrics().lineSpacing() * lines);
    m_layout->setSingleShot(true);
    connect(m_layout, &QTimer::timeout, this, [this] { load({m_place.page, m_text->verticalScrollBar()->value()}); });
    showPage(ManualPages::contentsPage);
    m_typed->setFocus();
}

void CDlgManual::build()
{
    connect(m_text, &ManualText::anchorClicked, this, &CDlgManual::follow);
    connect(m_contents, &ManualContents::chosen, this, [this](const QString &page) { showPage(page); });
    LookFonts::applyHint(m_note);
    m_note->hide();

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::unit);
    column->addWidget(buildBar());
    column->addWidget(m_note);
    auto *halves = new QSplitter(content);
    halves->setChildrenCollapsible(false);
    halves->addWidget(new KListCard(m_contents));
    halves->addWidget(m_text);
    halves->setStretchFactor(1, 1);
    constexpr int contentsLetters = 38;
    halves->setSizes({fontMetrics().averageCharWidth() * contentsLetters, fontMetrics().averageCharWidth() * 3 * contentsLetters});
    column->addWidget(halves, 1);
    setContent(content, createButtons({}, u"بستن"_s), Content::Fills);
}

QWidget *CDlgManual::buildBar()
{
    auto *bar = new QWidget;
    auto *line = new QHBoxLayout(bar);
    line->setContentsMargins({});
    line->setSpacing(LookSizes::unit);
    m_back = addButton(bar, u"بازگشت"_s, QKeySequence(Qt::ALT | Qt::Key_Right), [this] { step(m_before, m_after); });
    m_forward = addButton(bar, u"جلو"_s, QKeySequence(Qt::ALT | Qt::Key_Left), [this] { step(m_after, m_before); });
    QPushButton *first = addButton(bar, u"فهرست"_s, QKeySequence(Qt::ALT | Qt::Key_Home), [this] { showPage(ManualPages::contentsPage); });
    m_typed = new KEdit(bar);
    m_typed->setAccessibleName(u"جستجو در راهنما"_s);
    m_typed->setPlaceholderText(m_typed->accessibleName());
    m_typed->setClearButtonEnabled(true);
    LookMarks::setTall(m_typed);
    connect(m_typed, &KEdit::textChanged, this, &CDlgManual::search);
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, m_typed, [this] {
        m_typed->setFocus();
        m_typed->selectAll();
    });
    m_found = new QLabel(bar);
    LookFonts::applyHint(m_found);
    for (QWidget *part : {static_cast<QWidget *>(m_back), static_cast<QWidget *>(m_forward), static_cast<QWidget *>(first)})
        line->addWidget(part);
    line->addWidget(m_typed, 1);
    line->addWidget(m_found);
    return bar;
}

void CDlgManual::buildFooter()
{
    QPushButton *paper = addButton(this, u"چاپ"_s, QKeySequence(QKeySequence::Print), [this] { print(); });
    QPushButton *file = addButton(this, u"PDF همه راهنما"_s, QKeySequence(QKeySequence::Save), [this] { savePdf(); });
    paper->setIcon(LookIcons::icon(u":/icons/print.svg"_s));
    file->setIcon(LookIcons::icon(u":/icons/save.svg"_s));
    footer()->addWidget(paper);
    footer()->addWidget(file);
}

QPushButton *CDlgManual::addButton(QWidget *parent, const QString &text, const QKeySequence &keys, const std::function<void()> &work)
{
    auto *button = new KCommandButton({}, text, parent);
    button->setAutoDefault(false);
    button->setShortcutTip(keys);
    LookMarks::setTall(button);
    connect(button, &QPushButton::clicked, this, work);
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    return button;
}

void CDlgManual::showContents(const QString &note)
{
    showPage(ManualPages::contentsPage);
    m_note->setText(note);
    m_note->show();
}

void CDlgManual::showPage(const QString &page, const QString &anchor)
{
    if (!m_pages.has(page) && page != ManualPages::contentsPage) {
        showContents(u"این صفحه در راهنما نیست."_s);
        return;
    }
    m_note->hide();
    if (page != m_place.page) {
        if (!m_place.page.isEmpty())
            m_before.append({m_place.page, m_text->verticalScrollBar()->value()});
        m_after.clear();
        load({page, 0});
    }
    const int position = anchor.isEmpty() ? -1 : ManualDocument::positionOf(*m_text->document(), anchor);
    if (position >= 0) {
        QTextCursor cursor(m_text->document());
        cursor.setPosition(position);
        m_text->setTextCursor(cursor);
        m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->value() + m_text->cursorRect().top());
    }
}

void CDlgManual::load(const Place &place)
{
    m_place = place;
    const int width = qMax(LookSizes::narrow / 2, m_text->viewport()->width() - 2 * LookSizes::cardPadding);
    ManualDocument::fill(*m_text->document(),
                         {.text = m_pages.text(place.page), .folder = m_pages.folder(), .pictureWidth = width, .ratio = devicePixelRatioF()});
    m_text->moveCursor(QTextCursor::Start);
    m_text->verticalScrollBar()->setValue(place.scrolled);
    m_contents->setPage(place.page);
    markHits();
    showSteps();
}

void CDlgManual::follow(const QUrl &link)
{
    const QString file = link.path();
    if (!link.scheme().isEmpty())
        QDesktopServices::openUrl(link);
    else
        showPage(file.isEmpty() ? m_place.page : file.section(u'.', 0, 0), link.fragment(QUrl::FullyDecoded));
}

void CDlgManual::step(QList<Place> &from, QList<Place> &to)
{
    if (from.isEmpty())
        return;
    m_note->hide();
    to.append({m_place.page, m_text->verticalScrollBar()->value()});
    load(from.takeLast());
}

void CDlgManual::showSteps()
{
    m_back->setEnabled(!m_before.isEmpty());
    m_forward->setEnabled(!m_after.isEmpty());
}

void CDlgManual::search()
{
    m_search = ManualSearch(m_typed->text());
    const int found = m_contents->showMatching(m_search);
    m_found->setText(m_search.isEmpty() ? QString() : found == 0 ? u"پیدا نشد"_s
                                                                 : u"%1 صفحه"_s.arg(found));
    markHits();
    // The page that is read, if it holds the words, else the first that does.
    if (m_search.isEmpty() || found == 0)
        return;
    if (!m_search.isIn(m_pages.words(m_place.page)))
        showPage(m_contents->shownPages().constFirst());
    m_text->moveCursor(QTextCursor::Start);
    static_cast<void>(findHere(false, true));
}

void CDlgManual::markHits()
{
    QList<QTextEdit::ExtraSelection> marks;
    const QRegularExpression words = m_search.anyWord();
    QTextCharFormat format;
    format.setBackground(palette().highlight());
    format.setForeground(palette().highlightedText());
    for (QTextCursor hit = m_text->document()->find(words); !hit.isNull(); hit = m_text->document()->find(words, hit))
        marks.append({hit, format});
    m_text->setExtraSelections(marks);
}

bool CDlgManual::findHere(bool backwards, bool fromEdge)
{
    if (fromEdge)
        m_text->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    return m_text->find(m_search.anyWord(), backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags());
}

// On in this page, then in the next one that holds the words, and round.
void CDlgManual::nextHit(bool backwards)
{
    const QStringList pages = m_contents->shownPages();
    if (m_search.isEmpty() || pages.isEmpty() || findHere(backwards, false))
        return;
    const qsizetype here = pages.indexOf(m_place.page);
    const qsizetype next = here < 0 ? 0 : (here + (backwards ? -1 : 1) + pages.size()) % pages.size();
    showPage(pages.at(next));
    static_cast<void>(findHere(backwards, true));
}

void CDlgManual::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_typed->hasFocus()) {
        event->accept();
        nextHit(event->modifiers() & Qt::ShiftModifier);
        return;
    }
    KDialog::keyPressEvent(event);
}

void CDlgManual::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        ManualPaper::print(m_pages, m_place.page, printer);
}

void CDlgManual::savePdf()
{
    const QString path = ReportFile::ask(windowTitle(), u"فایل PDF"_s, u"pdf"_s, this);
    if (path.isEmpty())
        return;
    if (ManualPaper::writePdf(m_pages, path))
        ReportFile::tellWritten(path, this);
    else
        g_pDlgWarning->Show(u"فایل «%1» نوشته نشد."_s.arg(path), this);
}

void CDlgManual::resizeEvent(QResizeEvent *event)
{
    KDialog::resizeEvent(event);
    m_layout->start(0);
}

// What a page is painted with is in its document.
void CDlgManual::changeEvent(QEvent *event)
{
    KDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        m_layout->start(0);
}

// The window system refuses input to all windows but a modal one and those that belong to it: this one belongs to whichever is
// modal just now, and to none where none is.
bool CDlgManual::event(QEvent *event)
{
    const bool done = KDialog::event(event);
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Show)
        standBesideModal();
    return done;
}

void CDlgManual::standBesideModal()
{
    QWindow *own = windowHandle();
    QWindow *modal = QGuiApplication::modalWindow();
    // A window of its own, such as the one that asks for the printer, is to be answered first.
    if (!own || modal == own || (modal && own->isAncestorOf(modal, QWindow::IncludeTransients)) || own->transientParent() == modal)
        return;
    own->setTransientParent(modal);
    if (!modal)
        return;
    connect(
        modal, &QWindow::visibleChanged, this, [this](bool visible) {
            if (!visible)
                standBesideModal();
        },
        Qt::QueuedConnection);
}
