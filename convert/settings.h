#pragma once

#include <QString>

namespace vistrel
{

/// The user's settings as a conversion reads them. Each is read just before its use, so that a change made
/// during a run takes effect from there on. Values are handed over as they are stored, unchecked.
class ConversionSettings
{
public:
    virtual ~ConversionSettings() = default;

    /// Put in front of the file name as it stands; expected to end in a path separator.
    [[nodiscard]] virtual QString OutputFolder() const = 0;
    /// 0 PNG, 1 JPEG, 2 GIF, 3 BMP, 4 TIFF.
    [[nodiscard]] virtual qint32 ImageType() const = 0;
    /// 0 "URL", 1 "Number", 2 "Manual".
    [[nodiscard]] virtual qint32 NameAs() const = 0;
    /// 1 when existing files may be overwritten.
    [[nodiscard]] virtual qint32 Overwrite() const = 0;
    /// 1 when the output folder is to be opened after a run.
    [[nodiscard]] virtual qint32 OpenOutput() const = 0;
    /// Longest time for one page, in seconds.
    [[nodiscard]] virtual qint32 TimeOut() const = 0;
    /// Wait between a page being loaded and its capture, in seconds.
    [[nodiscard]] virtual qint32 DelayTime() const = 0;
    /// 1 to 100.
    [[nodiscard]] virtual qint32 JpgQuality() const = 0;

    /// A thumbnail of each capture is made as well, ThumWidth x ThumHeight pixels.
    [[nodiscard]] virtual bool Thumbnail() const = 0;
    [[nodiscard]] virtual qint32 ThumWidth() const = 0;
    [[nodiscard]] virtual qint32 ThumHeight() const = 0;

    /// What pages may run while they are captured.
    [[nodiscard]] virtual bool EnableActiveX() const = 0;
    [[nodiscard]] virtual bool EnableJava() const = 0;
    [[nodiscard]] virtual bool EnableScript() const = 0;
};

} // namespace vistrel
