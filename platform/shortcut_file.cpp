#include "platform/shortcut_file.h"

#include "platform/text.h"

namespace vistrel
{

QString ReadShortcutUrl(const QString& FileName, const ProfileFiles& files)
{
    return files.read(StripNull(FileName)).value(u"InternetShortcut", u"URL");
}

} // namespace vistrel
