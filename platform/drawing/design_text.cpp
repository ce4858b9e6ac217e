#include "platform/drawing/design_text.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString quoted(const QString& text)
{
    QString result = text;
    result.replace(u"\\"_s, u"\\\\"_s).replace(u"\""_s, u"\\\""_s).replace(u"\r"_s, u"\\r"_s);
    return u'"' + result.replace(u"\n"_s, u"\\n"_s).replace(u"\t"_s, u"\\t"_s) + u'"';
}

std::optional<QChar> unescaped(QChar letter)
{
    switch (letter.unicode()) {
    case u'"':
    case u'\\': return letter;
    case u'r': return u'\r';
    case u'n': return u'\n';
    case u't': return u'\t';
    default: return std::nullopt;
    }
}

std::optional<PropertyValue> readText(const QString& text)
{
    if (text.size() < 2 || !text.endsWith(u'"')) return std::nullopt;
    QString result;
    for (qsizetype at = 1; at < text.size() - 1; ++at) {
        QChar letter = text[at];
        if (letter == u'"') return std::nullopt;
        if (letter == u'\\') {
            if (++at == text.size() - 1) return std::nullopt;
            const auto escape = unescaped(text[at]);
            if (!escape) return std::nullopt;
            letter = *escape;
        }
        result += letter;
    }
    return result;
}

QString fontText(const Font& font)
{
    QString text = u"%1, %2 pt"_s.arg(font.family, QString::number(font.sizePt));
    if (font.bold) text += u", bold"_s;
    if (font.italic) text += u", italic"_s;
    if (font.underline) text += u", underline"_s;
    return text;
}

std::optional<PropertyValue> readFont(const QString& text)
{
    static const QRegularExpression form(
        u"^(.+), (\\d+(?:\\.\\d+)?) pt(, bold)?(, italic)?(, underline)?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return Font{match.captured(1), match.captured(2).toDouble(), match.hasCaptured(3), match.hasCaptured(4),
                match.hasCaptured(5)};
}

std::optional<PropertyValue> readColor(const QString& text)
{
    static const QRegularExpression form(u"^0x[0-9A-Fa-f]{1,8}$"_s);
    if (!form.match(text).hasMatch()) return std::nullopt;
    return Color{text.toUInt(nullptr, 16)};
}

std::optional<PropertyValue> readPicture(const QString& text)
{
    const Picture picture = Picture::fromResource(text.sliced(1));
    return picture.isNull() ? std::nullopt : std::optional<PropertyValue>(picture);
}

std::optional<PropertyValue> readValue(const QString& text)
{
    if (text == u"true"_s) return true;
    if (text == u"false"_s) return false;
    if (text.startsWith(u'"')) return readText(text);
    if (text.startsWith(u"0x"_s)) return readColor(text);
    if (auto font = readFont(text)) return font;
    if (text.startsWith(u'@')) return readPicture(text);
    bool isInteger = false;
    const qint32 integer = text.toInt(&isInteger);
    return isInteger ? std::optional<PropertyValue>(integer) : std::nullopt;
}

struct ValueText {
    QString operator()(qint32 value) const { return QString::number(value); }
    QString operator()(bool value) const { return value ? u"true"_s : u"false"_s; }
    QString operator()(const QString& value) const { return quoted(value); }
    QString operator()(Color value) const
    {
        return u"0x%1"_s.arg(QString::number(value.value, 16).toUpper().rightJustified(8, u'0'));
    }
    QString operator()(const Font& value) const { return fontText(value); }
    QString operator()(const Picture& value) const { return u'@' + value.name(); }
};

/// Takes one line after the other; says what is wrong with a line, or nothing.
class DesignReader
{
public:
    QString take(const QString& line)
    {
        if (line.isEmpty() || line.startsWith(u';')) return {};
        return line.startsWith(u'[') ? takeControl(line) : takeProperty(line);
    }

    QList<ControlDesign> controls;

private:
    QString takeControl(const QString& line)
    {
        static const QRegularExpression form(u"^\\[(\\S+)\\s+(\\S+)\\]$"_s);
        const QRegularExpressionMatch match = form.match(line);
        if (!match.hasMatch()) return u"a control is written [name Class]"_s;
        controls.append({match.captured(1), match.captured(2), {}});
        return {};
    }

    QString takeProperty(const QString& line)
    {
        const qsizetype sign = line.indexOf(u'=');
        const QString key = line.left(sign).trimmed();
        if (sign < 0 || key.isEmpty()) return u"a property is written Key = value"_s;
        if (controls.isEmpty()) return u"%1 belongs to no control"_s.arg(key);
        PropertyBag& properties = controls.last().properties;
        if (properties.contains(key)) return u"%1 is given twice"_s.arg(key);
        const auto value = readValue(line.sliced(sign + 1).trimmed());
        if (!value) return u"the value of %1 cannot be read"_s.arg(key);
        properties.set(key, *value);
        return {};
    }
};

} // namespace

Result<QList<ControlDesign>> readDesign(const QString& text)
{
    DesignReader reader;
    const QStringList lines = text.split(u'\n');
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QString problem = reader.take(lines[at].trimmed());
        if (!problem.isEmpty())
            return Error{Error::Kind::Format, u"line %1: %2"_s.arg(at + 1).arg(problem), {}};
    }
    return reader.controls;
}

QString designValue(const PropertyValue& value) { return std::visit(ValueText(), value); }

QString writeDesign(const QList<ControlDesign>& controls)
{
    QStringList sections;
    for (const ControlDesign& control : controls) {
        QString section = u"[%1 %2]\n"_s.arg(control.name, control.className);
        for (const auto& [key, value] : control.properties.entries())
            section += u"%1 = %2\n"_s.arg(key, designValue(value));
        sections += section;
    }
    return sections.join(u'\n');
}

} // namespace vistrel
