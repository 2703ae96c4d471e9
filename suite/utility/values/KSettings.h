// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include "suite/utility/values/TzValuesExport.h"

// Settings of one user on one machine, kept in an INI file. Sections and keys may hold backslashes, which part levels
// as in a path ("AutomobilContracts\\List"). What is written can be read at once, by every part of the program.

// Where the settings are kept from now on; without a call, in the user's configuration folder. An empty path goes back
// to that folder.
TZVALUES_EXPORT void setSettingsFile(const QString &iniPath);
TZVALUES_EXPORT QString settingsFile();

// Returns the default when nothing is stored or the stored value is not of the requested kind.
TZVALUES_EXPORT QString ReadSetting(const QString &section, const QString &key, const QString &defaultValue);
TZVALUES_EXPORT int ReadSetting(const QString &section, const QString &key, int defaultValue);
TZVALUES_EXPORT QByteArray ReadSetting(const QString &section, const QString &key, const QByteArray &defaultValue);

TZVALUES_EXPORT void WriteSetting(const QString &section, const QString &key, const QString &value);
TZVALUES_EXPORT void WriteSetting(const QString &section, const QString &key, int value);
TZVALUES_EXPORT void WriteSetting(const QString &section, const QString &key, const QByteArray &value);
