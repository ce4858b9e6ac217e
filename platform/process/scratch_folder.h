#pragma once

#include "platform/process/account.h"
#include "platform/result.h"

#include <QString>

#include <memory>

namespace vistrel
{

/// A private folder for one browser's profile and temporary files, ours alone to write; its subfolders may
/// belong to another account. It is deleted with this object; those of runs that were killed are found by
/// their owner's process id and deleted by sweepScratchFolders().
class ScratchFolder
{
public:
    /// Makes a fresh folder under the system's temporary folder; account, when given, will own what is made
    /// in it. Error::Kind::Io names the folder and the reason.
    static Result<std::unique_ptr<ScratchFolder>> create(const std::optional<Account>& account);

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    /// Deletes the folder; tries for up to a second, since ending processes may still be writing there.
    ~ScratchFolder();

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Makes a subfolder that the account may write.
    Result<QString> makeSubfolder(const QString& name);

    /// Copies the file at source into the folder under name, replacing an earlier one; only the account can
    /// read it. Returns the copy's path.
    Result<QString> copyIn(const QString& source, const QString& name);

    /// The same with a file that holds bytes.
    Result<QString> write(const QByteArray& bytes, const QString& name);

private:
    Result<QString> handOver(const QString& path);
    ScratchFolder(QString path, std::optional<Account> account);

    QString m_path;
    std::optional<Account> m_account;
};

/// Deletes our account's scratch folders under the system's temporary folder whose owning process no longer
/// runs; tries for up to a second each, like the destructor.
void sweepScratchFolders();

} // namespace vistrel
