#pragma once

#include "batch/entry.h"
#include "platform/result.h"

#include <QDir>
#include <QFile>

namespace vistrel
{

/// A page for people that shows a whole run: a thumbnail and the facts of every entry, searched and filtered
/// by state. It is one file that opens from disk and loads nothing from the network; pictures are linked
/// relative to it, so it moves together with its folder. Tens of thousands of entries are no burden: only
/// those in view are drawn.
class ContactSheet
{
public:
    /// Creates the file, or empties it. Error::Kind::Io when that cannot be done.
    Result<void> open(const QString& path);

    void add(const Entry& entry, const Outcome& outcome);

    /// Error::Kind::Io when any part could not be written.
    Result<void> close();

private:
    [[nodiscard]] QString linkTo(const QString& file) const;

    QFile m_file;
    QDir m_folder;
    bool m_empty = true;
};

} // namespace vistrel
