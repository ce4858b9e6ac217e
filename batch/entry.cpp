#include "batch/entry.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

QString stateName(EntryState state)
{
    switch (state) {
    case EntryState::Converted: return u"converted"_s;
    case EntryState::Failed: return u"failed"_s;
    case EntryState::Skipped: break;
    }
    return u"skipped"_s;
}

Outcome Outcome::failed(const QString& reason)
{
    Outcome outcome;
    outcome.state = EntryState::Failed;
    outcome.reason = reason;
    return outcome;
}

Outcome Outcome::skipped(const QString& reason)
{
    Outcome outcome;
    outcome.reason = reason;
    return outcome;
}

} // namespace vistrel
