#pragma once

#include "batch/entry_reader.h"
#include "batch/plan.h"
#include "platform/result.h"

#include <fstream>

namespace vistrel
{

/// The entries of a whole run, one after the other and numbered: those of the lists in the order given, then
/// the addresses of the command line. Lists are read as entries are asked for.
class EntrySource
{
public:
    /// plan and input, which is the list called "-", must outlive this object.
    EntrySource(const Plan& plan, std::istream& input) : m_plan(plan), m_input(input) {}

    /// The next entry; nothing at the end. Error::Kind::Io when a list cannot be read.
    [[nodiscard]] Result<std::optional<Entry>> next();

    /// Error::Kind::Io for the first list of plan that cannot be opened.
    [[nodiscard]] static Result<void> check(const Plan& plan);

private:
    [[nodiscard]] std::optional<Entry> nextAddress();
    [[nodiscard]] Result<void> openList(const QString& path);

    const Plan& m_plan;
    std::istream& m_input;
    std::ifstream m_file;
    std::optional<EntryReader> m_reader; // Of the list being read.
    qsizetype m_nextList = 0;
    qsizetype m_nextAddress = 0;
    qint64 m_lastNumber = 0;
};

} // namespace vistrel
