// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What the module needs from the operating system: the only part of it that differs from one system to another; each has
// its own ModulePlatform_<system>.cpp.
namespace ModulePlatform {

// The folder of the file that this code was loaded from: of the module, or of a program that the code is linked into.
// Empty when the system cannot find it.
QString moduleFolder();

}
