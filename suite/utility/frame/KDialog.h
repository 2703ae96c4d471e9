// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <QString>

#include "suite/utility/TzUtilityExport.h"

class QDialogButtonBox;

// Base of the modal windows: right to left, keyboard-friendly, keeps its size.
//
// Enter goes to the next field and on the last field presses the default button; Ctrl+Enter presses it from anywhere;
// on a button Enter presses that button. Esc cancels. Push buttons between the fields are reached with Tab, and so is a
// widget with the property actsOnEnter, which does something of its own on Enter.
class TZUTILITY_EXPORT KDialog : public QDialog
{
    Q_OBJECT

public:
    static constexpr char actsOnEnter[] = "actsOnEnter";

    explicit KDialog(QWidget *parent = nullptr);
    ~KDialog() override;

    // Section of the user's settings under which the window's size is kept; without a name it is not kept.
    void SetSettingName(const QString &name);

    // Runs OnOK and closes only when that agrees.
    void accept() override;
    void reject() override;
    void done(int result) override;

protected:
    // The work of the OK button. False keeps the window open.
    virtual bool OnOK();
    // Called once before a cancelled window closes.
    virtual void OnCancel();

    // The usual row of "تاييد" (the default button, wired to accept) and "انصراف" (wired to reject). An empty caption
    // leaves that button out.
    QDialogButtonBox *createButtons(const QString &okCaption = defaultOkCaption(),
                                    const QString &cancelCaption = defaultCancelCaption());
    static QString defaultOkCaption();
    static QString defaultCancelCaption();

    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool moveToNextField();
    void pressDefaultButton();
    void restoreSize();

    QString m_settingName;
    bool m_sizeRestored = false;
};
