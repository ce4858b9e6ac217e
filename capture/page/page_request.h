#pragma once

#include "capture/image/page_picture.h"

#include <QList>
#include <QSize>
#include <QStringList>
#include <QUrl>

#include <chrono>

namespace vistrel
{

/// A header of HTTP requests.
struct RequestHeader {
    QString name;
    QString value;
};

/// What to capture and how. The defaults are the wizard's.
struct PageRequest {
    /// http, https or file, best first: the next one is tried where one cannot be reached. At least one.
    QList<QUrl> addresses;
    /// For a local page: the folder outside of which it sees no file; empty: it sees what a browser shows it.
    QString confinement;
    QList<RequestHeader> headers; ///< Sent to the own host alone; see RequestHeaders.
    QList<RequestHeader> cookies; ///< Likewise.

    // ---- When the picture is taken ----
    /// The longest time from the opening of the page to its picture; 0 means 30 s.
    std::chrono::milliseconds timeout = std::chrono::seconds(30);
    QString awaitedElement;  ///< A CSS selector: not before an element matches; empty: no such wait.
    bool awaitsIdle = false; ///< Not before the page has fetched nothing for a while; see adaptPage().
    std::chrono::milliseconds delay{0}; ///< Wait after the page is ready; within timeout.

    // ---- How the page looks ----
    bool allowScript = true;   ///< Whether the page's own scripts run.
    QSize viewport{1280, 800}; ///< CSS px.
    double scale = 1;          ///< Device pixels of a CSS px: 0.5 to 4, in hundredths.
    bool dark = false;         ///< Whether the reader prefers dark colours, as far as the page asks.
    QString style;             ///< CSS rules beside the page's own.
    QStringList hidden;        ///< CSS selectors of what is left out.
    QString script; ///< Body of an async function that runs in the page once it is loaded; empty: none.

    // ---- What is in the picture: the whole page, at least the viewport ----
    bool windowOnly = false; ///< The viewport alone.
    QString element;         ///< A CSS selector: the box of the first element that matches alone.
    int maxHeight = 0;       ///< CSS px at which the picture is cut; 0: nowhere.

    // ---- How the browser hands the pixels over ----
    /// Png is lossless, Jpeg is for those who want nothing else; they get Png all the same where
    /// quality asks for every pixel's colour or the browser cannot.
    PagePicture::Encoding encoding = PagePicture::Encoding::Png;
    int jpegQuality = 80; ///< 1 to 100; only for Encoding::Jpeg.

    bool wantsTitle = false; ///< Whether PageShot::title is to be filled.
};

/// A page's picture and what is worth knowing of how it came about.
struct PageShot {
    PagePicture picture;
    QUrl finalAddress;    ///< After redirects.
    int httpStatus = 0;   ///< 0 for local files.
    QString title;        ///< As the page has it; empty when it has none or none was wanted.
    QStringList warnings; ///< What the picture may lack, in words for a person.
};

} // namespace vistrel
