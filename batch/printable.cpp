#include "batch/printable.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vistrel
{

QString printable(QString text)
{
    static const QRegularExpression credentials(u"([A-Za-z][A-Za-z0-9+.-]*://)[^\\s/?#@\"]*@"_s);
    text.replace(credentials, u"\\1***@"_s);
    for (QChar& character : text) {
        const bool control = character.category() == QChar::Other_Control ||
                             (character.unicode() >= 0x202a && character.unicode() <= 0x202e);
        if (control) character = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace vistrel
