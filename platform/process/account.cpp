#include "platform/process/account.h"

#include <QDir>
#include <QFileInfo>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vistrel
{

namespace
{

constexpr uid_t kOverflowId = 65534; // The kernel's own "nobody".

bool permits(const Account& account, const QString& path, mode_t ownerBit)
{
    struct stat status {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return false;
    if (status.st_uid == account.user) return (status.st_mode & ownerBit) != 0;
    if (status.st_gid == account.group) return (status.st_mode & (ownerBit >> 3)) != 0;
    return (status.st_mode & (ownerBit >> 6)) != 0;
}

} // namespace

bool Account::runningAsSuperuser() { return ::geteuid() == 0; }

Account Account::unprivileged()
{
    const passwd* entry = ::getpwnam("nobody");
    return entry != nullptr ? Account{entry->pw_uid, entry->pw_gid} : Account{kOverflowId, kOverflowId};
}

bool Account::canRead(const QString& path) const
{
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    if (!file.isFile() || !permits(*this, file.filePath(), S_IRUSR)) return false;
    QDir folder = file.dir();
    while (permits(*this, folder.path(), S_IXUSR)) {
        if (folder.isRoot()) return true;
        folder = QFileInfo(folder.path()).dir();
    }
    return false;
}

bool Account::takeOver(const QString& path) const
{
    return ::lchown(QFile::encodeName(path).constData(), user, group) == 0;
}

std::optional<Account> browserAccount()
{
    if (!Account::runningAsSuperuser()) return std::nullopt;
    return Account::unprivileged();
}

} // namespace vistrel
