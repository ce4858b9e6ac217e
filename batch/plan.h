#pragma once

#include "capture/browser/browser_options.h"
#include "capture/image/image_encoder.h"
#include "capture/page/page_request.h"

#include <QStringList>

namespace vistrel
{

/// How a picture's file is called: after its address or file, or by its entry's number.
enum class Naming { Url, Number };

/// All that one run is told, checked and complete. The member initialisers are the program's defaults.
struct Plan {
    QStringList lists;     ///< Paths of list files; "-" is standard input.
    QStringList addresses; ///< Entries given on the command line; they follow those of the lists.
    QString outputFolder = QStringLiteral(".");
    ImageFormat format = ImageFormat::Png;
    Naming naming = Naming::Url;
    bool overwrite = false; ///< Replace files of earlier runs; else a free name is found by numbering.
    int jpegQuality = 80;   ///< 1 to 100.
    std::optional<QSize> thumbnail; ///< Px; none when no thumbnails are wanted.
    PageRequest page;               ///< For every page; the addresses are filled in per entry.
    BrowserOptions browser;
    QString reportFile; ///< Empty: no report.
    bool verbose = false;
};

} // namespace vistrel
