#include "platform/text.h"

namespace vistrel
{

QString StripNull(const QString& text) { return text.left(text.indexOf(QChar::Null)); }

QString trimBlanks(const QString& text)
{
    QStringView view = text;
    while (view.startsWith(u' '))
        view = view.sliced(1);
    while (view.endsWith(u' '))
        view.chop(1);
    return view.toString();
}

} // namespace vistrel
