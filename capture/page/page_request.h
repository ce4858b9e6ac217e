#pragma once

#include "capture/image/page_picture.h"

#include <QList>
#include <QSize>
#include <QStringList>
#include <QUrl>

#include <chrono>

namespace vistrel
{

/// What to capture and how. The defaults are the wizard's.
struct PageRequest {
    /// http, https or file, best first: the next one is tried where one cannot be reached. At least one.
    QList<QUrl> addresses;
    /// The longest time from the opening of the page to its picture; 0 means 30 s.
    std::chrono::milliseconds timeout = std::chrono::seconds(30);
    std::chrono::milliseconds delay{
        0};                    ///< Wait between the page being ready and its picture; within timeout.
    bool allowScript = true;   ///< Whether the page's own scripts run.
    QSize viewport{1280, 800}; ///< CSS px. The picture is the whole page, at least this size.
    /// For a local page: the folder outside of which it sees no file; empty: it sees what a browser shows it.
    QString confinement;
    /// How the browser hands the pixels over: Png is lossless, Jpeg is for those who want nothing else.
    PagePicture::Encoding encoding = PagePicture::Encoding::Png;
    int jpegQuality = 80; ///< 1 to 100; only for Encoding::Jpeg.
};

/// A page's picture and what is worth knowing of how it came about.
struct PageShot {
    PagePicture picture;
    QUrl finalAddress;    ///< After redirects.
    int httpStatus = 0;   ///< 0 for local files.
    QStringList warnings; ///< What the picture may lack, in words for a person.
};

} // namespace vistrel
