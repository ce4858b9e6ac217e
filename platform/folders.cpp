#include "platform/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

QString programFolder() { return QCoreApplication::applicationDirPath(); }

QString userConfigFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/vistrel"_s;
}

QString specialFolder(qint32 number)
{
    constexpr qint32 documents = 5;
    if (number != documents) return {};
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir().mkpath(folder) ? folder : QString();
}

bool isWritable(const QString& path)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

} // namespace vistrel
