#pragma once

#include "capture/image/image_encoder.h"
#include "capture/page/page_request.h"

#include <QList>

namespace vistrel
{

// What users write behind options, turned into values. What is written wrong gives Error::Kind::Usage with a
// message that says how it is written right.

/// "1280x800": px, 1 to 10,000 a side.
[[nodiscard]] Result<QSize> readSize(const QString& text);

/// "auto" (0) or 1 to 64.
[[nodiscard]] Result<int> readJobs(const QString& text);

/// "png,jpeg": each once, in the order written.
[[nodiscard]] Result<QList<ImageFormat>> readFormats(const QString& text);

/// "url", "number", or a name template.
[[nodiscard]] Result<QString> readNaming(const QString& text);

/// "Name: value"; not those that belong to the connection or have an option of their own.
[[nodiscard]] Result<RequestHeader> readHeader(const QString& text);

/// "name=value".
[[nodiscard]] Result<RequestHeader> readCookie(const QString& text);

/// "de-CH,de,en".
[[nodiscard]] Result<QString> readLanguages(const QString& text);

/// One line of text, not blank.
[[nodiscard]] Result<QString> readLine(const QString& text);

/// "http://host:port", or https, socks4, socks5; no credentials, which browsers take from people alone.
[[nodiscard]] Result<QString> readProxy(const QString& text);

/// The content of the UTF-8 text file at path, at most 1 MiB.
[[nodiscard]] Result<QString> readTextFile(const QString& path);

} // namespace vistrel
