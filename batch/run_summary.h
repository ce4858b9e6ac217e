#pragma once

#include "batch/journal.h"

#include <QHash>
#include <QStringList>

namespace vistrel
{

/// What a run came to, for a person: the totals, then the failures and the oddities grouped by reason, the
/// most frequent first. It stays small however many entries there are.
class RunSummary
{
public:
    void add(const Entry& entry, const Outcome& outcome);

    /// The lines, without line breaks. folder: where the pictures are, with the journal to go on with; empty
    /// when it is gone.
    [[nodiscard]] QStringList lines(qint64 elapsedMilliseconds, const QString& folder) const;

private:
    struct Group {
        qint64 count = 0;
        QString example; // The first entry.
    };
    static void count(QHash<QString, Group>& groups, const QString& reason, const Entry& entry);
    static QStringList describe(const QHash<QString, Group>& groups, const QString& verb);

    Tally m_tally;
    QHash<QString, Group> m_failures; // By reason, what is particular to one entry left out.
    QHash<QString, Group> m_notes;
};

/// reason without what is particular to one entry: quoted texts, paths, numbers that stand alone.
[[nodiscard]] QString generalReason(const QString& reason);

} // namespace vistrel
