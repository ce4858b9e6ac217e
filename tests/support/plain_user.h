#pragma once

#include <QtGlobal>

#include <cstdlib>
#include <unistd.h>

namespace vistrel::test
{

/// Gives up the rights of the superuser, to whom no file is closed, until the end of its scope.
class PlainUser
{
public:
    PlainUser() : m_changed(::geteuid() == 0 && ::seteuid(65534) == 0) {}
    ~PlainUser()
    {
        if (m_changed && ::seteuid(0) != 0) std::abort();
    }
    Q_DISABLE_COPY_MOVE(PlainUser)

private:
    bool m_changed;
};

} // namespace vistrel::test
