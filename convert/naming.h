#pragma once

#include "platform/host_files.h"
#include "platform/path_style.h"

#include <QString>

namespace vistrel
{

/// The extension, with its dot, that an ImageType writes: 0 ".png", 1 ".jpg", 2 ".gif", 3 ".bmp", 4 ".tif";
/// empty for every other value.
[[nodiscard]] QString extensionForImageType(qint32 imageType);

/// The file name, without folder and extension, that the "URL" scheme gives an entry. A local file (one that
/// exists in files) lends its own name, cut at its last dot. An address becomes a name by turning each of
/// \ ? / : * | < > and the double quote into "_"; everything else stays, the length too.
[[nodiscard]] QString urlSchemeName(const QString& entry, const HostFiles& files, PathStyle style);

/// The next name to try when path, numbered k - 1 times so far, is taken: a.png gives a(1).png for k = 1,
/// which gives a(2).png for k = 2. Every place of the path that reads so is changed, folders too; case
/// counts. An empty extension leaves path as it is at k = 1.
[[nodiscard]] QString numberedPath(const QString& path, const QString& extension, qint64 k);

/// Where the thumbnail of the picture at imagePath goes: "_T" in front of every occurrence of the extension;
/// case counts.
[[nodiscard]] QString thumbnailPath(const QString& imagePath, const QString& extension);

} // namespace vistrel
