#pragma once

#include <QString>

#include <optional>

#include <sys/types.h>

namespace vistrel
{

/// A user account of this machine.
struct Account {
    uid_t user;
    gid_t group;

    /// True when this process has the superuser's rights, under which a browser keeps no sandbox.
    static bool runningAsSuperuser();

    /// The unprivileged account that a superuser's child processes should run under ("nobody").
    static Account unprivileged();

    /// Whether this account, in no other group than its own, may read the file at path (all folders on the
    /// way included). Judged by owners and permission bits; access lists are not looked at.
    [[nodiscard]] bool canRead(const QString& path) const;

    /// Hands the file or folder at path over to this account; false when the system refuses.
    [[nodiscard]] bool takeOver(const QString& path) const;
};

/// The account that a browser has to run under: none (our own) unless we are the superuser.
std::optional<Account> browserAccount();

} // namespace vistrel
