// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/desk/Desk.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/db/connection/CMySQLException.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr auto lookEvery = std::chrono::milliseconds(5);

// The box of a message is a plain function.
Desk *theDesk = nullptr;

int categoryOf(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const CMySQLException &known) {
        return static_cast<int>(known.category());
    } catch (...) {
        return -1;
    }
}

QJsonArray cellsOf(const QAbstractItemView &view)
{
    QJsonArray cells;
    const QAbstractItemModel *model = view.model();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < model->columnCount(); ++column)
            texts.append(model->index(row, column).data().toString());
        cells.append(texts.join(u'\t'));
    }
    return cells;
}

}

Desk::Desk(QHash<QString, Command> commands)
    : m_commands(std::move(commands))
{
    theDesk = this;
    KMessageDialog::setBox(&box);
}

Desk::~Desk()
{
    KMessageDialog::setBox(nullptr);
    theDesk = nullptr;
}

int Desk::run()
{
    // Its own thread, because a command that waits below a window must not keep the next one from being read.
    std::thread([this] { read(); }).detach();
    std::thread([this] { keepLooking(); }).detach();
    return QCoreApplication::exec();
}

void Desk::read()
{
    std::string line;
    while (std::getline(std::cin, line))
        QMetaObject::invokeMethod(
            this,
            [this, text = QString::fromStdString(line)] {
                m_waiting.append(text);
                takeWaiting();
            },
            Qt::QueuedConnection);
    // A desk whose test has ended ends too, whatever it waits for.
    std::_Exit(0);
}

// By calls from a thread and no timer of its own, because a program that waits for its server may put timers off.
void Desk::keepLooking()
{
    for (;;) {
        std::this_thread::sleep_for(lookEvery);
        if (m_looked.exchange(false))
            QMetaObject::invokeMethod(
                this, [this] { look(); }, Qt::QueuedConnection);
    }
}

void Desk::takeWaiting()
{
    while (!m_waiting.isEmpty() && (m_noticesHeard || !isNotice(QApplication::activeModalWidget())))
        take(m_waiting.takeFirst());
}

void Desk::take(const QString &line)
{
    const Words words = line.split(u'\t');
    m_owes = true;
    m_value = QJsonValue();
    see(QApplication::activeModalWidget());
    const auto command = m_commands.constFind(words.constFirst());
    if (command == m_commands.cend()) {
        answer(u"failed"_s, {{u"text"_s, u"no such command: "_s + words.constFirst()}});
        return;
    }
    try {
        switch ((*command)(*this, words)) {
        case Then::Answered:
            break;
        case Then::AnswerDone:
            answer(u"done"_s);
            break;
        case Then::AnswerClosed:
            answer(u"closed"_s);
            break;
        }
    } catch (...) {
        const std::exception_ptr error = std::current_exception();
        answer(u"failed"_s, {{u"text"_s, KErrorText::userMessage(error)}, {u"category"_s, categoryOf(error)}, {u"log"_s, KErrorText::logText(error)}});
    }
}

void Desk::answer(const QString &is, QJsonObject more)
{
    if (!m_owes) {
        std::fprintf(stderr, "tzdesk: an answer that nobody waits for: %s\n", qUtf8Printable(is));
        return;
    }
    m_owes = false;
    more.insert(u"is"_s, is);
    more.insert(u"said"_s, QJsonArray::fromStringList(m_said));
    if (!m_value.isNull())
        more.insert(u"value"_s, m_value);
    m_said.clear();
    const QByteArray text = QJsonDocument(more).toJson(QJsonDocument::Compact);
    std::printf("%s\n", text.constData());
    std::fflush(stdout);
}

void Desk::see(QWidget *window)
{
    m_seen.removeAll(nullptr);
    if (window && !m_seen.contains(window))
        m_seen.append(window);
}

void Desk::look()
{
    m_looked = true;
    takeWaiting();
    QWidget *window = QApplication::activeModalWidget();
    if (!m_owes || !window || m_seen.contains(window) || !window->isVisible() || (isNotice(window) && !m_noticesHeard))
        return;
    see(window);
    answer(u"window"_s, {{u"window"_s, describe(window)}});
}

bool Desk::isNotice(const QWidget *window)
{
    return window && window->metaObject() == &QDialog::staticMetaObject && window->windowTitle() == u"پایگاه داده"_s;
}

void Desk::complain(const QString &what)
{
    throw KAccountingError(u"tzdesk: "_s + what);
}

int Desk::number(const Words &words, int position)
{
    bool isNumber = false;
    const int value = words.value(position).toInt(&isNumber);
    if (!isNumber)
        complain(u"no number at %1 of: %2"_s.arg(position).arg(words.join(u' ')));
    return value;
}

QJsonObject Desk::describe(QWidget *window)
{
    if (!window)
        return {};
    QJsonArray texts;
    QJsonArray buttons;
    for (const QWidget *widget : window->findChildren<QWidget *>()) {
        if (!widget->isVisibleTo(window))
            continue;
        if (const auto *label = qobject_cast<const QLabel *>(widget); label && !label->text().isEmpty())
            texts.append(label->text());
        else if (const auto *button = qobject_cast<const QAbstractButton *>(widget); button && !button->text().isEmpty())
            buttons.append(button->text());
        else if (const auto *view = qobject_cast<const QAbstractItemView *>(widget))
            for (const QJsonValue cell : cellsOf(*view))
                texts.append(cell);
    }
    return {{u"class"_s, QString::fromLatin1(window->metaObject()->className())},
            {u"title"_s, window->windowTitle()},
            {u"texts"_s, texts},
            {u"buttons"_s, buttons}};
}

KMessageDialog::Answer Desk::box(KMessageDialog::Kind, const QString &text, KMessageDialog::Buttons buttons, QWidget *)
{
    if (!theDesk)
        return KMessageDialog::No;
    theDesk->m_said.append(text);
    if (buttons == KMessageDialog::Buttons::Ok)
        return KMessageDialog::Yes;
    // Of two buttons, the other one: no folder is opened.
    if (buttons == KMessageDialog::Buttons::OkOrFolder)
        return KMessageDialog::No;
    return theDesk->m_asking ? theDesk->ask(text) : KMessageDialog::Yes;
}

KMessageDialog::Answer Desk::ask(const QString &text)
{
    QEventLoop loop;
    QEventLoop *const below = m_question;
    m_question = &loop;
    answer(u"question"_s, {{u"text"_s, text}});
    loop.exec();
    m_question = below;
    return m_yes ? KMessageDialog::Yes : KMessageDialog::No;
}

void Desk::answerQuestion(bool yes)
{
    m_yes = yes;
    if (m_question)
        m_question->quit();
    else
        answer(u"failed"_s, {{u"text"_s, u"nothing is asked"_s}});
}
