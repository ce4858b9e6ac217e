#pragma once

#include "batch/entry.h"
#include "batch/plan.h"

#include <QSet>

namespace vistrel
{

/// Where an entry's files go.
struct OutputFiles {
    QString image;     ///< Full path.
    QString thumbnail; ///< Full path; empty when none is wanted.
};

/// The name of entry's files, without folder and ending: one component that every common file system takes,
/// never hidden, never special. It may be too long, and may be another entry's too.
[[nodiscard]] QString plainName(const Entry& entry, Naming naming);

/// name cut so that name and ending together take at most 255 bytes. What is cut is a whole character; a
/// short hash of the full name then keeps different names different.
[[nodiscard]] QString fittedName(const QString& name, const QString& ending);

/// Two names with the same key are the same file on some file system: case and Unicode form do not count.
[[nodiscard]] QString nameKey(const QString& name);

/// Gives every entry of a run names of its own. What exists in the folder is avoided by numbering, like a
/// name that an earlier entry has, unless the plan overwrites.
class OutputNames
{
public:
    explicit OutputNames(const Plan& plan);

    [[nodiscard]] OutputFiles claim(const Entry& entry);

private:
    [[nodiscard]] OutputFiles filesOf(const QString& name) const;
    [[nodiscard]] bool isFree(const QString& name) const;

    QString m_folder; // With its final separator.
    QString m_ending;
    Naming m_naming;
    bool m_overwrite;
    bool m_thumbnails;
    QSet<QString> m_taken; // Keys of the names given, those of the thumbnails included.
};

} // namespace vistrel
