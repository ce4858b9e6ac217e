#include "batch/report_file.h"

#include "batch/printable.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using Fields = QList<std::pair<QByteArray, QJsonValue>>;

QJsonValue orNull(const QString& text) { return text.isEmpty() ? QJsonValue() : QJsonValue(printable(text)); }

QJsonValue orNull(qint64 number) { return number == 0 ? QJsonValue() : QJsonValue(number); }

QString isoTime(qint64 milliseconds)
{
    if (milliseconds == 0) return {};
    return QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC().toString(Qt::ISODateWithMs);
}

Fields fields(const Entry& entry, const Outcome& outcome)
{
    const QSize size = outcome.size.isEmpty() ? QSize(0, 0) : outcome.size;
    return {{"line", entry.line},
            {"entry", printable(entry.text)},
            {"state", stateName(outcome.state)},
            {"file", orNull(outcome.file)},
            {"thumbnail", orNull(outcome.thumbnail)},
            {"width", orNull(size.width())},
            {"height", orNull(size.height())},
            {"bytes", orNull(outcome.bytes)},
            {"milliseconds", outcome.milliseconds},
            {"reason", orNull(outcome.reason)},
            {"list", orNull(entry.list)},
            {"address", orNull(outcome.address)},
            {"status", orNull(outcome.httpStatus)},
            {"note", orNull(outcome.note)},
            {"attempts", outcome.attempts},
            {"started", orNull(isoTime(outcome.started))},
            {"sha256", orNull(outcome.hash)}};
}

QByteArray json(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

QByteArray csv(const QJsonValue& value)
{
    if (value.isDouble()) return QByteArray::number(value.toInteger());
    QString text = value.toString();
    if (!text.isEmpty() && u"=+-@\t\r"_s.contains(text.front())) text.prepend(u'\'');
    return '"' + text.replace(u'"', u"\"\""_s).toUtf8() + '"';
}

Error cannotBeWritten(const QFile& file)
{
    return {Error::Kind::Io, u"%1 cannot be written: %2"_s.arg(file.fileName(), file.errorString()), {}};
}

} // namespace

QByteArray reportHeading(ReportFile::Format format)
{
    if (format == ReportFile::Format::JsonLines) return {};
    QByteArrayList names;
    for (const auto& [name, value] : fields({}, {}))
        names.append(name);
    return names.join(',') + "\r\n";
}

QByteArray reportLine(ReportFile::Format format, const Entry& entry, const Outcome& outcome)
{
    QByteArrayList members;
    for (const auto& [name, value] : fields(entry, outcome))
        members.append(format == ReportFile::Format::Csv ? csv(value) : '"' + name + "\":" + json(value));
    if (format == ReportFile::Format::Csv) return members.join(',') + "\r\n";
    return '{' + members.join(',') + "}\n";
}

Result<void> ReportFile::open(const QString& path)
{
    m_format = path.endsWith(u".csv", Qt::CaseInsensitive) ? Format::Csv : Format::JsonLines;
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return cannotBeWritten(m_file);
    m_file.write(reportHeading(m_format));
    return {};
}

void ReportFile::add(const Entry& entry, const Outcome& outcome)
{
    m_file.write(reportLine(m_format, entry, outcome));
}

Result<void> ReportFile::close()
{
    m_file.flush();
    if (m_file.error() != QFileDevice::NoError) return cannotBeWritten(m_file);
    m_file.close();
    return {};
}

} // namespace vistrel
