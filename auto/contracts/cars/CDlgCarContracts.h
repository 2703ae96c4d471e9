// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cars/CarContracts.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class QPushButton;

// The contracts that were made from a car ("قراردادهای خودرو"), each one key or click away. The same window asks, before another contract of the
// car is begun while one is open.
class CDlgCarContracts final : public KDialog
{
    Q_OBJECT

public:
    enum class Purpose {
        Show,
        AskForAnother
    };

    CDlgCarContracts(int carID, Purpose purpose, QWidget *parent = nullptr);
    ~CDlgCarContracts() override;

    static void Show(int carID, QWidget *parent);
    // Whether the user goes on to another contract. True without a question where none is open besides that contract.
    static bool mayBeginAnother(int carID, int exceptContract, QWidget *parent);

    KExtListCtrl *list() const { return m_list; }
    QPushButton *openButton() const { return m_open; }
    // Parts the chosen contract from the car, after a question; null where the window asks.
    QPushButton *unlinkButton() const { return m_unlink; }

private:
    void build();
    void fill();
    void openSelected();
    void unlinkSelected();

    int m_carID;
    Purpose m_purpose;
    KExtListCtrl *m_list = nullptr;
    QPushButton *m_open = nullptr;
    QPushButton *m_unlink = nullptr;
    QList<CarContracts::Entry> m_entries;
};
