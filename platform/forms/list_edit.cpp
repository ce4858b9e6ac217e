#include "platform/forms/list_edit.h"

#include <QMimeData>
#include <QUrl>

namespace vistrel
{

namespace
{

/// None when source holds anything but local files.
QStringList localFiles(const QMimeData& source)
{
    QStringList paths;
    for (const QUrl& url : source.urls()) {
        if (!url.isLocalFile()) return {};
        paths += url.toLocalFile();
    }
    return paths;
}

} // namespace

ListEdit::ListEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setFrameShape(NoFrame);
}

void ListEdit::insertFromMimeData(const QMimeData* source)
{
    const QStringList paths = localFiles(*source);
    if (paths.isEmpty()) return QPlainTextEdit::insertFromMimeData(source);
    Q_EMIT filesDropped(paths);
}

bool ListEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return !localFiles(*source).isEmpty() || QPlainTextEdit::canInsertFromMimeData(source);
}

} // namespace vistrel
