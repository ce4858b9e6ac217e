#pragma once

#include <QString>

namespace vistrel
{

/// The user's settings as the conversion engine reads them. The engine never writes them and keeps no copy:
/// it asks each time it needs one, so a change made during a run counts from the next question on. Values
/// come as they are stored; nobody has checked their ranges.
class ConversionSettings
{
public:
    virtual ~ConversionSettings() = default;

    /// Put in front of every file name as it stands, so it should end with the path separator.
    [[nodiscard]] virtual QString OutputFolder() const = 0;
    /// 0 PNG, 1 JPEG, 2 GIF, 3 BMP, 4 TIFF.
    [[nodiscard]] virtual qint32 ImageType() const = 0;
    /// 0 "URL", 1 "Number", 2 "Manual".
    [[nodiscard]] virtual qint32 NameAs() const = 0;
    /// 1: existing files are replaced; otherwise a free name is looked for.
    [[nodiscard]] virtual qint32 Overwrite() const = 0;
    /// 1: the output folder is opened after a run.
    [[nodiscard]] virtual qint32 OpenOutput() const = 0;
    /// Longest time for one page, in seconds.
    [[nodiscard]] virtual qint32 TimeOut() const = 0;
    /// Wait between a page being loaded and its picture being taken, in seconds.
    [[nodiscard]] virtual qint32 DelayTime() const = 0;
    /// 1 to 100.
    [[nodiscard]] virtual qint32 JpgQuality() const = 0;
    /// Whether every picture gets a thumbnail beside it, ThumWidth x ThumHeight pixels.
    [[nodiscard]] virtual bool Thumbnail() const = 0;
    [[nodiscard]] virtual qint32 ThumWidth() const = 0;
    [[nodiscard]] virtual qint32 ThumHeight() const = 0;
    /// What pages may run while they are captured.
    [[nodiscard]] virtual bool EnableActiveX() const = 0;
    [[nodiscard]] virtual bool EnableJava() const = 0;
    [[nodiscard]] virtual bool EnableScript() const = 0;
};

} // namespace vistrel
