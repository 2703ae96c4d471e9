// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KMessageDialog.h"

#include <QEventLoop>
#include <QHash>
#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <atomic>
#include <functional>

// A desk of the office as a program that a test drives line by line, so that several desks can be led in step and ended at
// any point. A command is a line of words separated by tabs; each has exactly one answer, a JSON object in a line:
//
//   {"is": "done", "value": ...}             it is finished
//   {"is": "window", "window": {...}}        a modal window has come up, and the command waits below it
//   {"is": "question", "text": "..."}        a question is asked (only after "asking on"), to be answered by "answer"
//   {"is": "kept", ...}                      the window that was to be confirmed stays open
//   {"is": "closed", "value": true}          the window of an earlier command was closed: confirmed or not
//   {"is": "failed", "text": "...", "category": ...}   an error left the command
//
// Each answer has "said", the messages that users of the desk were shown since the last one.
class Desk final : public QObject
{
public:
    using Words = QStringList;
    // What a command leaves to be answered.
    enum class Then {
        Answered,    // by itself, or by the command below, whose window it closes
        AnswerDone,  // with the value that it set
        AnswerClosed // the command's window has closed
    };
    using Command = std::function<Then(Desk &, const Words &)>;

    explicit Desk(QHash<QString, Command> commands);
    ~Desk() override;

    // Reads commands until the input ends.
    int run();

    void answer(const QString &is, QJsonObject more = {});
    void setValue(const QJsonValue &value) { m_value = value; }
    // Whether a command still waits for its answer.
    bool owesAnswer() const { return m_owes; }

    // Questions wait for the test from now on; otherwise they are answered with yes.
    void setAsking(bool on) { m_asking = on; }
    void answerQuestion(bool yes);

    // A notice that comes and goes by itself, while the server is awaited, is an answer only when told so; otherwise commands wait
    // until it has gone, whatever it is that waits for the server.
    void setNoticesHeard(bool on) { m_noticesHeard = on; }
    static bool isNotice(const QWidget *window);

    // What the test has done wrong; it shows as a failed command.
    [[noreturn]] static void complain(const QString &what);
    // The whole number at a position of a command.
    static int number(const Words &words, int position);

    // The modal window on top as its user reads it.
    static QJsonObject describe(QWidget *window);

private:
    static KMessageDialog::Answer box(KMessageDialog::Kind kind, const QString &text, KMessageDialog::Buttons buttons,
                                      QWidget *parent);
    KMessageDialog::Answer ask(const QString &text);
    void read();
    void keepLooking();
    void take(const QString &line);
    // The commands that came below a notice.
    void takeWaiting();
    void see(QWidget *window);
    void look();

    QHash<QString, Command> m_commands;
    std::atomic<bool> m_looked = true; // the last call of look has run
    // Modal windows that an answer has told of, or that a command was given in.
    QList<QPointer<QWidget>> m_seen;
    QStringList m_waiting;
    QStringList m_said;
    QJsonValue m_value;
    QEventLoop *m_question = nullptr;
    bool m_owes = false;
    bool m_asking = false;
    bool m_noticesHeard = false;
    bool m_yes = true;
};
