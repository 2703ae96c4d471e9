// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <QString>

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/frame/TypedWork.h"

class QDialogButtonBox;
class QHBoxLayout;

// Base of the modal windows: right to left, keyboard-friendly, keeps its size.
//
// Enter goes to the next field and on the last field presses the default button; Ctrl+Enter presses it from anywhere;
// on a button Enter presses that button. Esc cancels. Push buttons between the fields are reached with Tab, and so is a
// widget with the property actsOnEnter, which does something of its own on Enter.
//
// A window with an OK button asks before it drops what was entered since it was shown, whichever way it is closed but by its
// cancel button, which is the answer already.
class TZUTILITY_EXPORT KDialog : public QDialog
{
    Q_OBJECT

public:
    static constexpr char actsOnEnter[] = "actsOnEnter";
    static constexpr const char *followsSelection = TypedWork::followsSelection;

    // Asks the user whether what was entered into the window may be dropped. The message boxes, which belong to a floor above,
    // hand it in; without one nothing is asked.
    using DropQuestion = bool (*)(QWidget *window);
    static void setDropQuestion(DropQuestion question);

    explicit KDialog(QWidget *parent = nullptr);
    ~KDialog() override;

    // Section of the user's settings under which the window's size is kept; without a name it is not kept.
    void SetSettingName(const QString &name);

    // Runs OnOK and closes only when that agrees.
    void accept() override;
    // Asks where something was entered; then cancel.
    void reject() override;
    // Closes without asking.
    void cancel();
    void done(int result) override;

    // Whether the window holds something that was entered and not saved. Nothing counts before it is shown.
    bool holdsTypedWork() const;
    // Entries below the part that the window got after it was shown, filled by now.
    void entriesLoaded(const QWidget *part);

protected:
    // The work of the OK button. False keeps the window open.
    virtual bool OnOK();
    // Called once before a cancelled window closes.
    virtual void OnCancel();

    // For a window without an OK button that holds work all the same, or one with an OK button that holds none: a picker, a login.
    void setAsksBeforeDropping(bool asks) { m_asks = asks; }
    // False when the user wants to keep what was entered.
    [[nodiscard]] bool mayDropTypedWork();
    // What the window holds is saved now.
    void typedWorkSaved();

    // The usual row of "تاييد" (the default button, wired to accept) and "انصراف" (wired to reject). An empty caption
    // leaves that button out.
    QDialogButtonBox *createButtons(const QString &okCaption = defaultOkCaption(),
                                    const QString &cancelCaption = defaultCancelCaption());
    static QString defaultOkCaption();
    static QString defaultCancelCaption();

    // What stands above the footer.
    enum class Content {
        Scrolls, // a page of cards or fields, in a scroll area
        Fills    // a list or a grid, which scrolls itself
    };
    // Makes the window's frame: the content, and below it a footer that is always in sight, with the buttons at its far end. Takes
    // ownership. Once, and with all of the content's parts in it by then, because Tab goes through them in the order of the layout.
    void setContent(QWidget *content, QDialogButtonBox *buttons, Content kind = Content::Scrolls);
    // The leading part of the footer, for commands and what else stands there; null before setContent.
    QHBoxLayout *footer() const { return m_footer; }

    // Whether the window holds something entered and not saved has changed.
    virtual void typedWorkChanged(bool) { }

    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private Q_SLOTS:
    void entryChanged();

private:
    void watchEntries();
    void tellTypedWork();
    void tabToFooterLast();
    bool moveToNextField();
    void pressDefaultButton();
    void restoreSize();

    QString m_settingName;
    bool m_sizeRestored = false;
    bool m_asks = false;
    bool m_accepting = false;
    bool m_checkPending = false;
    bool m_toldTyped = false;
    QWidget *m_bar = nullptr;
    QHBoxLayout *m_footer = nullptr;
    TypedWork m_typed;
};
