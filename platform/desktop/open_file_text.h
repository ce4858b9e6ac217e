#pragma once

#include <QStringList>

#include <optional>

namespace vistrel
{

/// The filter of an OpenFileRequest as QFileDialog takes it, one text per pair: "Text file(*.txt)", "*.txt"
/// becomes "Text file (*.txt)". A description that ends in its own list of patterns does not show it twice.
[[nodiscard]] QStringList nameFilters(const QString& filter);

/// The chosen files as an OpenFileReply's buffer of size characters; none when they do not fit. The folder is
/// the one that all paths have in common; it ends in a separator only when it is the root. paths are
/// absolute, with "/" between names, and not empty.
[[nodiscard]] std::optional<QString> selectionBuffer(const QStringList& paths, qsizetype size);

} // namespace vistrel
