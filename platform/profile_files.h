#pragma once

#include "platform/profile.h"
#include "platform/result.h"

#include <QList>

namespace vistrel
{

/// The profile files of the host. A file that lies directly in the program's folder is redirected while the
/// user may not write to that folder: writes go to a copy of the same name in the user's own folder, reads
/// come from that copy once it exists. Callers name the file in the program's folder either way.
class ProfileFiles
{
public:
    struct Entry {
        QString key;
        QString value;
    };

    /// This program's folder, this user's folder and the locale's code page.
    static ProfileFiles host();

    /// Folders are absolute paths; userFolder is created by the first write that needs it.
    ProfileFiles(QString programFolder, QString userFolder, CodePage codePage);

    /// The file's content; empty when there is no such file or it cannot be read.
    [[nodiscard]] Profile read(const QString& path) const;

    /// Sets the entries, in their order, in one section, and replaces the file as a whole: after a failure
    /// (Error::Kind::Io) the old file is as it was. A file that exists but cannot be read is not replaced.
    Result<void> write(const QString& path, const QString& section, const QList<Entry>& entries) const;

private:
    [[nodiscard]] QString pathForWriting(const QString& path) const;
    [[nodiscard]] Result<Profile> load(const QString& path) const;

    QString m_programFolder;
    QString m_userFolder;
    CodePage m_codePage;
};

} // namespace vistrel
