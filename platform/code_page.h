#pragma once

#include <QByteArray>
#include <QString>

namespace vistrel
{

/// The character set that profile files and list files are written in. Conversion never fails: what has no
/// counterpart becomes the substitute character, "?" on the way out and U+FFFD on the way in. A byte-order
/// mark is a character like any other. Values may be shared between threads.
class CodePage
{
public:
    /// The character set of the user's locale (LC_ALL, LC_CTYPE, LANG), whatever the toolkit made of it.
    /// UTF-8 where the locale names none (C, POSIX) or is not installed.
    static CodePage host();

    /// charset: a name that iconv knows; UTF-8 when it does not.
    explicit CodePage(const QByteArray& charset);

    [[nodiscard]] QString toText(QByteArrayView bytes) const;
    [[nodiscard]] QByteArray toBytes(QStringView text) const;

private:
    QByteArray m_charset; // Empty: UTF-8, which needs no iconv.
};

} // namespace vistrel
