#pragma once

#include "batch/output_names.h"

#include <istream>

namespace vistrel
{

/// Reads all entries of plan's lists (input is the one called "-"), gives them their names and puts them into
/// journal, in one transaction and in constant memory. Internet shortcuts give their address. Blocks; any
/// thread. Errors: those of the lists, the sitemaps and the journal.
Result<void> fillJournal(Journal& journal, const Plan& plan, OutputNames& names, std::istream& input);

} // namespace vistrel
