#include "convert/add_files.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QString pageFilter =
    u"All HTML Files & URLs(*.htm;*.html;*.mht;*.mhtml;*.txt;*.url)|*.htm;*.html;*.mht;*.mhtml;*.txt;*.url"_s;

/// The paths in the dialog's answer: one alone, or a folder followed by names in it.
QStringList chosenPaths(const QString& answer, PathStyle style)
{
    QStringList pieces = answer.left(answer.indexOf(u"\0\0"_s)).split(QChar::Null);
    if (pieces.size() == 1) return pieces;
    const QString folder = style.withTrailingSeparator(pieces.takeFirst());
    pieces.removeAll(QString());
    for (QString& piece : pieces)
        piece.prepend(folder);
    return pieces;
}

bool isShortcut(const QString& path)
{
    return path.size() > 4 && path.endsWith(u".url"_s, Qt::CaseInsensitive);
}

} // namespace

bool AddFiles(ConversionWindow& window, const ShortcutReader& readShortcutUrl, PathStyle style)
{
    QString answer;
    const OpenDialog dialog{
        .fileMustExist = true, .multiSelect = true, .filter = pageFilter, .defaultExtension = u".htm"_s};
    if (!window.ShowOpenDialog(answer, dialog)) return false;
    for (QString& path : chosenPaths(answer, style))
        AddListEntry(window, readShortcutUrl, path);
    window.moveListCaretToEnd();
    window.focusList();
    return false;
}

void AddListEntry(ConversionWindow& window, const ShortcutReader& readShortcutUrl, QString& path)
{
    if (isShortcut(path)) path = readShortcutUrl(path);
    window.setListText(window.listText() + u"\r\n"_s + path + u"\r\n"_s);
}

} // namespace vistrel
