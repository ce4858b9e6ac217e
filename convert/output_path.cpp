#include "convert/output_path.h"

#include "convert/entry_files.h"
#include "convert/naming.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

OutputPath::OutputPath(ConversionWindow& window, HostFiles& files, PathStyle style)
    : m_window(window), m_files(files), m_style(style)
{
}

std::optional<QString> OutputPath::choose(const QString& entry, const QString& extension,
                                          qint32 entryNumber) const
{
    const std::optional<QString> path = basePath(entry, extension, entryNumber);
    if (!path) return path;
    if (m_window.settings().Overwrite() != 1) return freePath(*path, extension);
    deleteIfExists(m_files, *path);
    return path;
}

std::optional<QString> OutputPath::basePath(const QString& entry, const QString& extension,
                                            qint32 entryNumber) const
{
    switch (m_window.settings().NameAs()) {
    case 0: return m_window.settings().OutputFolder() + urlSchemeName(entry, m_files, m_style) + extension;
    case 1: return m_window.settings().OutputFolder() + QString::number(entryNumber) + extension;
    case 2: return askForPath(extension);
    default: return QString();
    }
}

std::optional<QString> OutputPath::askForPath(const QString& extension) const
{
    const OpenDialog dialog{.filter = u"*"_s + extension + u" Files|*"_s + extension,
                            .title = u"Save as"_s,
                            .defaultExtension = extension};
    QString path;
    do {
        if (!m_window.ShowOpenDialog(path, dialog)) return std::nullopt;
    } while (m_files.exists(path) && !mayReplace(path));
    deleteIfExists(m_files, path);
    return path;
}

bool OutputPath::mayReplace(const QString& path) const
{
    return m_window.askYesNo(u"The file "_s + path + u" already exists.\r\nDo you want to overwrite?"_s);
}

QString OutputPath::freePath(QString path, const QString& extension) const
{
    for (qint64 k = 1; m_files.exists(path); ++k) {
        path = numberedPath(path, extension, k);
        m_window.processPendingEvents();
    }
    return path;
}

} // namespace vistrel
