#pragma once

#include "platform/profile_files.h"

#include <QString>

namespace vistrel
{

/// Every setting of the user, with its default. Ranges hold for what loadConfig() gives; at run time any
/// value may be stored.
struct ConfigValues {
    qint16 FirstTime = 0;   ///< 0 until the program has completed a first start.
    QString OutputFolder;   ///< With a trailing separator unless the user wrote it without one.
    qint32 ImageType = 1;   ///< 0 PNG, 1 JPEG, 2 GIF, 3 BMP, 4 TIFF.
    qint32 NameAs = 0;      ///< 0 "URL", 1 "Number", 2 "Manual".
    qint32 Overwrite = 1;   ///< 1: existing files may be overwritten.
    qint32 OpenOutput = 1;  ///< 1: the output folder is opened after a run.
    qint32 TimeOut = 30;    ///< Seconds, 5 or more.
    qint32 DelayTime = 1;   ///< Seconds, 0 to 300.
    qint32 JpgQuality = 80; ///< 1 to 100.
    bool Thumbnail = false;
    qint32 ThumWidth = 50;  ///< Pixels, 2 or more.
    qint32 ThumHeight = 50; ///< Pixels, 2 or more.
    bool EnableActiveX = true;
    bool EnableJava = true;
    bool EnableScript = true;

    bool operator==(const ConfigValues&) const = default;
};

/// The settings file, in the program's folder.
[[nodiscard]] QString configPath();

/// Reads the settings from section "Main" of a profile file, which is never written. What is missing, out of
/// range, or too large for its field gets its default; a missing output folder is the user's documents
/// folder.
[[nodiscard]] ConfigValues loadConfig(const QString& path, const ProfileFiles& files = ProfileFiles::host());

/// Writes all settings, unchecked, in the order of the fields above.
Result<void> saveConfig(const QString& path, const ConfigValues& values,
                        const ProfileFiles& files = ProfileFiles::host());

} // namespace vistrel
