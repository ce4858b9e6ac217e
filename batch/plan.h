#pragma once

#include "batch/journal.h"
#include "capture/browser/browser_options.h"
#include "capture/image/image_encoder.h"
#include "capture/page/page_request.h"

#include <QStringList>

namespace vistrel
{

/// All that one run is told, checked and complete. The member initialisers are the program's defaults.
struct Plan {
    // ---- What is converted ----
    QStringList lists;     ///< Paths of list files; "-" is standard input.
    QStringList sitemaps;  ///< Addresses or paths; their pages follow those of the lists.
    QStringList addresses; ///< Entries given on the command line; they come last.

    // ---- Into what ----
    QString outputFolder = QStringLiteral(".");
    QList<ImageFormat> formats{ImageFormat::Png};
    /// "url": after the address or file; "number": by the entry's number; else a template ({index}, {host},
    /// ...).
    QString naming = QStringLiteral("url");
    bool overwrite = false; ///< Replace files of earlier runs; else a free name is found by numbering.
    int jpegQuality = 80;   ///< 1 to 100.
    std::optional<QSize> thumbnail; ///< Px; none when no thumbnails are wanted.
    PageRequest page;               ///< For every page; the addresses are filled in per entry.

    // ---- How the run goes about it ----
    BrowserOptions browser;
    int jobs = 0;                              ///< Pages at a time; 0: as many as the machine can bear.
    int perHost = 0;                           ///< Pages of one host at a time; 0: any number.
    std::chrono::milliseconds perHostDelay{0}; ///< Between the visits to two pages of one host.
    int retries = 0;                           ///< Further attempts after a fault that can pass.
    bool resume = false;      ///< Go on with the run that the output folder's journal tells of.
    bool retryFailed = false; ///< The same, its failed entries included.
    OptionValues options;     ///< What the journal keeps of the command line.

    // ---- What it tells ----
    QString reportFile; ///< Empty: no report.
    QString sheetFile;  ///< The contact sheet; empty: none.
    bool verbose = false;
};

} // namespace vistrel
