// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RowQuestions.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Outcome = RowQuestions::Outcome;

// Whether there is more to try.
bool answered(QWidget *window, OpenedRow &opened, KMySQL &record, const RowQuestions::Texts &texts, const RowChanged &changed)
{
    const auto answer = CDlgRowConflict::ask(changed, record, texts.caption, texts.format, window);
    if (answer != CDlgRowConflict::Answer::GoBack) {
        opened.answer(changed.conflicts(), answer == CDlgRowConflict::Answer::TakeTheirs);
        return true;
    }
    if (texts.goTo && !changed.conflicts().isEmpty())
        texts.goTo(changed.conflicts().constFirst().column);
    return false;
}

bool wantsNewRow(QWidget *window, const RowChanged &changed)
{
    return g_pDlgYesNo->Ask(changed.userMessage() + u" آیا آنچه در این پنجره است به عنوان ردیف تازه ذخیره شود؟"_s, window)
        != KMessageDialog::No;
}

const KFormField *fieldOf(const KForm &form, const QString &column)
{
    const auto found = std::ranges::find(form.fields(), column, &KFormField::column);
    return found == form.fields().cend() ? nullptr : &*found;
}

// As the control shows it, where that is not what the column's type says.
std::optional<QString> shown(const KFormField &field, const QVariant &value)
{
    using Kind = KFormField::Kind;
    if (field.kind == Kind::Flag)
        return value.toInt() != 0 ? u"بله"_s : u"خیر"_s;
    if (field.kind == Kind::Choice)
        return field.choices.value(value.toInt(), value.toString());
    if (field.kind == Kind::Lookup && !field.keys.isEmpty())
        return field.choices.value(field.keys.indexOf(value.toInt()));
    return std::nullopt;
}

// Until it is saved or the user does not go on.
Outcome saved(QWidget *window, OpenedRow &opened, KMySQL &record, const RowQuestions::Texts &texts,
              const std::function<void()> &attempt, const std::function<void()> &becomeNew)
{
    while (true) {
        try {
            const KWaitCursor wait;
            attempt();
            return Outcome::Saved;
        } catch (const RowChanged &changed) {
            if (changed.kind() == RowChanged::Kind::Conflict) {
                if (!answered(window, opened, record, texts, changed))
                    return Outcome::Back;
            } else if (changed.kind() == RowChanged::Kind::Gone && becomeNew) {
                if (!wantsNewRow(window, changed))
                    return Outcome::Gone;
                becomeNew();
            } else {
                g_pDlgWarning->Show(changed.userMessage(), window);
                return changed.kind() == RowChanged::Kind::Gone ? Outcome::Gone : Outcome::Back;
            }
        }
    }
}

}

RowQuestions::Texts RowQuestions::textsOf(const KForm &form)
{
    return {.caption =
                [&form](const QString &column) {
                    const KFormField *field = fieldOf(form, column);
                    if (!field)
                        return QString();
                    return field->kind == KFormField::Kind::Flag ? field->label : form.label(column)->text().remove(u" :"_s);
                },
            .format = [&form](const QString &column, const QVariant &value) -> std::optional<QString> {
                const KFormField *field = fieldOf(form, column);
                return field ? shown(*field, value) : std::nullopt;
            },
            .goTo =
                [&form](const QString &column) {
                    if (fieldOf(form, column))
                        form.control(column)->setFocus();
                }};
}

RowQuestions::Outcome RowQuestions::save(QWidget *window, OpenedRow &opened, KMySQL &record, const Texts &texts,
                                         const std::function<void()> &attempt, const std::function<void()> &becomeNew)
{
    opened.forgetAnswers();
    return saved(window, opened, record, texts, attempt, becomeNew);
}

RowQuestions::Outcome RowQuestions::save(QWidget *window, RowEdit &edit, const Texts &texts, const RowEdit::Write &write,
                                         const RowEdit::Settle &settle)
{
    edit.forgetAnswers();
    std::function<void()> becomeNew;
    if (texts.offersNewRow)
        becomeNew = [&edit] { edit.becomeNew(); };
    const auto goTo = [&texts](const FieldRefused &refused) {
        if (texts.goTo)
            texts.goTo(refused.column());
    };
    while (true) {
        try {
            return saved(
                window, edit.opened(), edit.record(), texts, [&] { edit.save(write, settle); }, becomeNew);
        } catch (const FieldDoubted &doubted) {
            if (g_pDlgYesNo->Ask(doubted.userMessage(), window) == KMessageDialog::No) {
                goTo(doubted);
                return Outcome::Back;
            }
            edit.agree(doubted.userMessage());
        } catch (const FieldRefused &refused) {
            g_pDlgWarning->Show(refused.userMessage(), window);
            goTo(refused);
            return Outcome::Back;
        } catch (const KAccountingError &refused) {
            g_pDlgWarning->Show(refused.userMessage(), window);
            return Outcome::Back;
        }
    }
}
