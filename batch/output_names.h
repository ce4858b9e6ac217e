#pragma once

#include "batch/journal.h"
#include "batch/plan.h"

#include <QDate>

namespace vistrel
{

/// Where an entry's files go.
struct OutputFiles {
    QStringList images; ///< Full paths, one for each format of the plan.
    QString thumbnail;  ///< Full path; empty when none is wanted.

    /// All paths.
    [[nodiscard]] QStringList all() const
    {
        return thumbnail.isEmpty() ? images : images + QStringList{thumbnail};
    }
};

/// What a name template may ask for beyond the entry itself.
struct PageFacts {
    QSize size;    ///< Of the picture, px.
    QString title; ///< Of the page, as the page has it.
};

/// Whether text can be a --name template: it names something that differs from entry to entry, and nothing
/// that is not known.
[[nodiscard]] Result<void> checkNameTemplate(const QString& text);

/// The name of entry's files, without folder and ending: one component that every common file system takes,
/// never hidden, never special. It may be too long, and may be another entry's too. naming as in Plan.
[[nodiscard]] QString plainName(const Entry& entry, const QString& naming, const PageFacts& facts = {},
                                QDate today = QDate::currentDate());

/// name cut so that name and ending together take at most 255 bytes. What is cut is a whole character; a
/// short hash of the full name then keeps different names different.
[[nodiscard]] QString fittedName(const QString& name, const QString& ending);

/// Two names with the same key are the same file on some file system: case and Unicode form do not count.
[[nodiscard]] QString nameKey(const QString& name);

/// Gives every entry of a run a name of its own, and keeps the names in its journal. What exists in the
/// folder is avoided by numbering, like a name that an earlier entry has, unless the plan overwrites. Any
/// thread.
class OutputNames
{
public:
    /// journal must outlive this object.
    OutputNames(const Plan& plan, Journal& journal);

    /// The naming asks for what only the page tells (PageFacts).
    [[nodiscard]] bool dependOnPage() const;

    /// A name for entry that no other entry of the run has.
    [[nodiscard]] Result<QString> claim(const Entry& entry, const PageFacts& facts = {});

    [[nodiscard]] OutputFiles filesOf(const QString& name) const;

private:
    [[nodiscard]] Result<bool> take(const QString& name);
    [[nodiscard]] bool existsOnDisk(const QString& name) const;

    Journal& m_journal;
    QString m_folder; // With its final separator.
    QString m_naming;
    QStringList m_endings; // Of the formats.
    QString m_longestEnding;
    bool m_overwrite;
    bool m_thumbnails;
};

} // namespace vistrel
