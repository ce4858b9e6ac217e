#include "batch/report_file.h"

#include "batch/printable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QJsonValue orNull(const QString& text) { return text.isEmpty() ? QJsonValue() : QJsonValue(text); }

QJsonValue orNull(qint64 number) { return number == 0 ? QJsonValue() : QJsonValue(number); }

QList<std::pair<QByteArray, QJsonValue>> fields(const Entry& entry, const Outcome& outcome)
{
    return {{"line", entry.line},
            {"entry", printable(entry.text)},
            {"state", stateName(outcome.state)},
            {"file", orNull(outcome.file)},
            {"thumbnail", orNull(outcome.thumbnail)},
            {"width", orNull(outcome.size.isEmpty() ? 0 : outcome.size.width())},
            {"height", orNull(outcome.size.isEmpty() ? 0 : outcome.size.height())},
            {"bytes", orNull(outcome.bytes)},
            {"milliseconds", outcome.milliseconds},
            {"reason", orNull(printable(outcome.reason))}};
}

QByteArray json(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

Error cannotBeWritten(const QFile& file)
{
    return {Error::Kind::Io, u"%1 cannot be written: %2"_s.arg(file.fileName(), file.errorString()), {}};
}

} // namespace

QByteArray reportLine(const Entry& entry, const Outcome& outcome)
{
    QByteArrayList members;
    for (const auto& [key, value] : fields(entry, outcome))
        members.append('"' + key + "\":" + json(value));
    return '{' + members.join(',') + "}\n";
}

Result<void> ReportFile::open(const QString& path)
{
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return cannotBeWritten(m_file);
    return {};
}

void ReportFile::add(const Entry& entry, const Outcome& outcome)
{
    if (!m_file.isOpen()) return;
    m_file.write(reportLine(entry, outcome));
    m_file.flush();
}

Result<void> ReportFile::close()
{
    if (!m_file.isOpen()) return {};
    m_file.flush();
    if (m_file.error() != QFileDevice::NoError) return cannotBeWritten(m_file);
    m_file.close();
    return {};
}

} // namespace vistrel
