// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/faults/desk/Desk.h"

// What a desk can be told to do. Keys are those of the tables, columns are named as in the tables.
//
//   login USER                        as that user, without a password
//   office USER                       an administrator and the contract settings, for a fresh database; logged in
//   person NAME FAMILY                value: its key
//   new contract                      opens the editor of a new contract
//   edit contract|car|demand KEY      opens the editor of that record
//   parties FIRST SECOND              in the contract editor: persons from the list
//   car OWNER AMOUNT                  a car of that person for sale; value: its key
//   from CAR                          in the contract editor: the contract is made from that car
//   unlink CAR CONTRACT               parts them
//   vehicle                           in the contract editor: what a vehicle's contract cannot be saved without
//   set COLUMN TEXT                   in the contract editor: typed into the field
//   get COLUMN                        value: what the field shows
//   save, save twice, cancel          the editor's buttons
//   press CAPTION, row N              in the window on top
//   list                              value: keys in the list of contracts, read anew
//   delete KEY, archive KEY           the list's commands on that contract
//   undo KEY                          takes the deletion of that contract back; value: its key now
//   receive PERSON AMOUNT TEXT        a receipt; value: the document's number
//   instalments CONTRACT PERSON       opens the window of the plan
//   bin TABLE KEY                     as DeskBin.h says
//   report                            value: total income in credit, by the comprehensive report
//   sum up                            new documents are taken into the sums of their accounts
//   add, merge, hold, let go          as DeskContention.h says
//   window                            the modal window on top
//   asking on|off, answer yes|no      questions wait for the test
//   notices on|off                    the notice that the server is awaited is an answer
namespace DeskCommands {

QHash<QString, Desk::Command> all();

}
