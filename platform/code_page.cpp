#include "platform/code_page.h"

#include <QStringDecoder>

#include <array>
#include <cerrno>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

namespace vistrel
{

namespace
{

constexpr const char* utf16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";

QByteArrayView unitsAsBytes(QStringView text)
{
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype(sizeof(char16_t))};
}

/// One conversion of one text from its first byte to its last.
class Conversion
{
public:
    Conversion(const char* to, const char* from) : m_descriptor(iconv_open(to, from)) {}
    ~Conversion()
    {
        if (isKnown()) iconv_close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(Conversion)

    // iconv_open reports failure as an all-ones handle.
    [[nodiscard]] bool isKnown() const { return reinterpret_cast<intptr_t>(m_descriptor) != -1; }

    /// Converts as much of input as follows its character set; the rest is returned, empty when all went
    /// well.
    QByteArrayView feed(QByteArrayView input)
    {
        auto* from = const_cast<char*>(input.data()); // iconv only reads through it.
        auto left = size_t(input.size());
        while (step(&from, &left) == E2BIG) {
        }
        return input.last(qsizetype(left));
    }

    void append(QByteArrayView output) { m_output.append(output.data(), output.size()); }

    /// The whole output, with the character set's initial state restored at its end.
    QByteArray finish()
    {
        step(nullptr, nullptr);
        return m_output;
    }

private:
    int step(char** from, size_t* left)
    {
        std::array<char, 4096> buffer;
        char* to = buffer.data();
        size_t room = buffer.size();
        const bool done = iconv(m_descriptor, from, left, &to, &room) != size_t(-1);
        const int reason = done ? 0 : errno;
        m_output.append(buffer.data(), to - buffer.data());
        return reason;
    }

    iconv_t m_descriptor;
    QByteArray m_output;
};

qsizetype lengthOfFirstCharacter(QByteArrayView utf16Bytes)
{
    const auto* units = reinterpret_cast<const char16_t*>(utf16Bytes.data());
    const bool isPair =
        utf16Bytes.size() >= 4 && QChar::isHighSurrogate(units[0]) && QChar::isLowSurrogate(units[1]);
    return isPair ? 4 : 2;
}

QByteArray localeCharset()
{
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", locale_t{});
    if (locale == locale_t{}) return {};
    const QByteArray charset = nl_langinfo_l(CODESET, locale);
    freelocale(locale);
    return charset;
}

} // namespace

CodePage CodePage::host()
{
    const QByteArray charset = localeCharset();
    const bool namesNone = charset == "ANSI_X3.4-1968" || charset == "US-ASCII";
    return CodePage(namesNone ? QByteArray() : charset);
}

CodePage::CodePage(const QByteArray& charset)
{
    const bool isUtf8 = QStringConverter::encodingForName(charset.constData()) == QStringConverter::Utf8;
    if (!isUtf8 && Conversion(charset.constData(), utf16).isKnown()) m_charset = charset;
}

QString CodePage::toText(QByteArrayView bytes) const
{
    using Flag = QStringDecoder::Flag;
    if (m_charset.isEmpty())
        return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(bytes);

    Conversion conversion(utf16, m_charset.constData());
    QByteArrayView rest = conversion.feed(bytes);
    while (!rest.isEmpty()) {
        conversion.append(unitsAsBytes(u"\uFFFD"));
        rest = conversion.feed(rest.sliced(1));
    }
    const QByteArray units = conversion.finish();
    return QString(reinterpret_cast<const QChar*>(units.constData()),
                   units.size() / qsizetype(sizeof(QChar)));
}

QByteArray CodePage::toBytes(QStringView text) const
{
    if (m_charset.isEmpty()) return text.toUtf8();

    Conversion conversion(m_charset.constData(), utf16);
    QByteArrayView rest = conversion.feed(unitsAsBytes(text));
    while (!rest.isEmpty()) {
        conversion.feed(unitsAsBytes(u"?"));
        rest = conversion.feed(rest.sliced(lengthOfFirstCharacter(rest)));
    }
    return conversion.finish();
}

} // namespace vistrel
