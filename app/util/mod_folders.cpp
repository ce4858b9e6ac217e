#include "app/util/mod_folders.h"

#include "platform/folders.h"
#include "platform/text.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

QString BrowseForFolder(FileDialogs& dialogs, WindowHandle hWndOwner, const QString& Title, PathStyle style)
{
    const QString prompt = Title.isEmpty() ? u"Choose an output folder: "_s : Title;
    const QString folder = StripNull(trimBlanks(dialogs.browseForFolder(hWndOwner, prompt)));
    return style.withTrailingSeparator(folder);
}

QString GetSpecialFolder(qint32 CSIDL)
{
    return PathStyle::host().withTrailingSeparator(StripNull(specialFolder(CSIDL)));
}

} // namespace vistrel
