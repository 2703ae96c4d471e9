// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>

#include <functional>

// One run of the word processor that turns a document into a PDF, without a window and with a profile of its own, so that it disturbs no
// document that the user has open in it and none of his extensions is loaded.
struct TZUTILITY_EXPORT PdfConversion
{
    enum class Outcome {
        Done,
        ProgramMissing,
        Failed, // it ended without a whole PDF
        TimedOut,
        Cancelled
    };

    QString document;
    QString folder;                  // private and writable: the profile, and the PDF under the document's name
    QString program = installed();   // empty: there is none
    int limitMilliseconds = 120'000; // the first run of all makes the profile

    // Called about twenty times a second with what has passed of the limit. False cancels.
    using Pulse = std::function<bool(int milliseconds, int limit)>;

    // To its end; afterwards nothing of it runs any more, whatever the outcome.
    Outcome run(const Pulse &pulse = {}) const;
    // Where the PDF is, once it is done.
    QString pdfPath() const;

    // Looked for on the search path.
    static QString installed();
    // The Debian package that brings it.
    static QString package();
};
