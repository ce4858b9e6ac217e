#pragma once

#include "convert/conversion_window.h"
#include "platform/host_files.h"
#include "platform/path_style.h"

#include <QString>

#include <optional>

namespace vistrel
{

/// Decides where the picture of an entry is written, by the naming scheme and the overwrite rule in force at
/// that moment. Borrows the window and the files.
class OutputPath
{
public:
    OutputPath(ConversionWindow& window, HostFiles& files, PathStyle style);

    /// The full path, at which no file exists any more: an older one has been deleted, with or without a
    /// question, or a free number was found. Nothing when the user cancelled the dialog of the "Manual"
    /// scheme. An empty path for an unknown scheme. The event loop runs between numbers. RuntimeError
    /// PermissionDenied when a file in the way cannot be deleted, ObjectNotSet when the settings are gone.
    [[nodiscard]] std::optional<QString> choose(const QString& entry, const QString& extension,
                                                qint32 entryNumber) const;

private:
    [[nodiscard]] std::optional<QString> basePath(const QString& entry, const QString& extension,
                                                  qint32 entryNumber) const;
    [[nodiscard]] std::optional<QString> askForPath(const QString& extension) const;
    [[nodiscard]] bool mayReplace(const QString& path) const;
    [[nodiscard]] QString freePath(QString path, const QString& extension) const;

    ConversionWindow& m_window;
    HostFiles& m_files;
    PathStyle m_style;
};

} // namespace vistrel
