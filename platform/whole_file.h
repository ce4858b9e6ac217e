#pragma once

#include <QIODevice>

#include <optional>

namespace vistrel
{

/// What stands in the way of writing a file.
struct WriteProblem {
    enum class Cause {
        Exists,     ///< Something is at the path, and it was not to be replaced.
        DiskFull,   ///< No space or quota is left.
        FolderGone, ///< The folder cannot be written or is not there.
        Other,
    };
    Cause cause;
    QString message; ///< Names the file or its folder, and the system's reason.
};

enum class IfExists { Replace, Refuse };

/// A file that appears at its path whole or not at all: a device of random access, for writing and reading,
/// over a temporary file that nobody else sees until moveTo() gives it its name. Without that it is gone with
/// this object. Any thread, one at a time.
class WholeFile : public QIODevice
{
public:
    /// For a file in folder. On failure the device is not open, and there is a problem().
    explicit WholeFile(const QString& folder);
    ~WholeFile() override;

    /// What first stood in the way of making or writing it. Nothing while all went well.
    [[nodiscard]] std::optional<WriteProblem> problem() const;

    /// Gives it the name path, in its folder, in one step; it survives a power failure once this returns. A
    /// link at path is replaced, not followed. On failure path is as it was, and another one may be tried.
    [[nodiscard]] std::optional<WriteProblem> moveTo(const QString& path, IfExists ifExists);
    /// Takes back what moveTo() did, so that another path may be tried; what was replaced is not brought
    /// back.
    void takeBack();

    /// Bytes written so far.
    [[nodiscard]] qint64 size() const override { return m_size; }

protected:
    qint64 readData(char* bytes, qint64 count) override;
    qint64 writeData(const char* bytes, qint64 count) override;

private:
    bool link();
    bool rename();

    const QString m_folder;
    const QByteArray m_temporaryPath;
    QByteArray m_path;              // As moveTo() was told.
    bool m_hasTemporaryPath = true; // Beside its path, or alone.
    int m_descriptor;
    int m_errorNumber; // Of the first failure; 0 while there was none.
    qint64 m_size = 0;
};

/// Deletes the temporary files that killed runs left in folder. Nothing may be writing there meanwhile.
void sweepTemporaryFiles(const QString& folder);

} // namespace vistrel
