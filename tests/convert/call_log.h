#pragma once

#include <QString>

#include <string>

namespace vistrel::test
{

/// Calls in the order in which they came, one line each, so that a test compares whole sequences as text.
class CallLog
{
public:
    /// Line breaks inside call show as \r\n.
    void add(QString call)
    {
        m_lines += call.replace(QStringLiteral("\r\n"), QStringLiteral("\\r\\n")).toStdString() + '\n';
    }
    void add(const QString& verb, const QString& object) { add(verb + u' ' + object); }
    void clear() { m_lines.clear(); }
    [[nodiscard]] const std::string& lines() const { return m_lines; }

private:
    std::string m_lines;
};

} // namespace vistrel::test
