#include "platform/desktop/open_file_text.h"

#include "platform/path_style.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString folderOf(const QString& path) { return path.left(qMax(path.lastIndexOf(u'/'), qsizetype(1))); }

QString commonFolder(const QStringList& paths)
{
    QString folder = folderOf(paths.first());
    const auto holds = [&](const QString& path) {
        return path.startsWith(PathStyle::slash().withTrailingSeparator(folder));
    };
    while (!std::all_of(paths.begin(), paths.end(), holds))
        folder = folderOf(folder);
    return folder;
}

} // namespace

QStringList nameFilters(const QString& filter)
{
    QStringList result;
    const QStringList pieces = filter.split(QChar::Null, Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        QString description = pieces[i];
        const QString ownPatterns = u"(%1)"_s.arg(pieces[i + 1]);
        if (description.endsWith(ownPatterns)) description.chop(ownPatterns.size());
        result += u"%1 (%2)"_s.arg(description, QString(pieces[i + 1]).replace(u';', u' '));
    }
    return result;
}

std::optional<QString> selectionBuffer(const QStringList& paths, qsizetype size)
{
    QString text = paths.first();
    if (paths.size() > 1) {
        text = commonFolder(paths);
        const qsizetype prefix = PathStyle::slash().withTrailingSeparator(text).size();
        for (const QString& path : paths)
            text += QChar::Null + path.sliced(prefix);
        text += QChar::Null;
    }
    if (text.size() >= size) return std::nullopt;
    return text.leftJustified(size, QChar::Null);
}

} // namespace vistrel
