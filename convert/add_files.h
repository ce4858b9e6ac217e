#pragma once

#include "convert/conversion_window.h"
#include "platform/path_style.h"

#include <QString>

#include <functional>

namespace vistrel
{

/// Reads the address that an Internet shortcut file holds; empty when it holds none or cannot be read.
using ShortcutReader = std::function<QString(const QString& fileName)>;

/// Lets the user choose local pages and Internet shortcuts and appends them to the list, one line each, in
/// the dialog's order; then the list has the focus and its caret stands at the end. A cancelled dialog
/// changes nothing. The result says nothing: it is always false.
bool AddFiles(ConversionWindow& window, const ShortcutReader& readShortcutUrl, PathStyle style);

/// Appends one file to the list, between two line breaks. A shortcut (".url" in any case) is replaced, in
/// path too, by the address that it holds.
void AddListEntry(ConversionWindow& window, const ShortcutReader& readShortcutUrl, QString& path);

} // namespace vistrel
