#include "app/util/lenient_number.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vistrel
{

double leadingNumber(const QString& text)
{
    static const QRegularExpression number(uR"(^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)"_s);
    const QString compact = QString(text).remove(u' ').remove(u'\t');
    return number.match(compact).captured().toDouble() + 0.0; // -0 becomes 0.
}

QString numberText(double number) { return QString::number(number, 'f', QLocale::FloatingPointShortest); }

} // namespace vistrel
