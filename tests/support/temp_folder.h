#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistrel::test
{

/// A folder of its own for one test, gone afterwards.
class TempFolder
{
public:
    /// Path of name in the folder; name may be empty.
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    /// Writes a file and returns its path.
    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    /// Content of a file; empty when there is none.
    [[nodiscard]] QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace vistrel::test
