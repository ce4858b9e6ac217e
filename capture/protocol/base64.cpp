#include "capture/protocol/base64.h"

#include <array>

namespace vistrel
{

namespace
{

constexpr quint32 kInvalid = 0x80000000;

using Sextets = std::array<quint32, 256>; // By character.

constexpr Sextets shiftedSextets(int shift)
{
    constexpr QByteArrayView alphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    Sextets sextets{};
    for (quint32& sextet : sextets)
        sextet = kInvalid;
    for (quint32 value = 0; value < 64; ++value)
        sextets[uchar(alphabet[value])] = value << shift;
    return sextets;
}

constexpr Sextets kFirst = shiftedSextets(18);
constexpr Sextets kSecond = shiftedSextets(12);
constexpr Sextets kThird = shiftedSextets(6);
constexpr Sextets kFourth = shiftedSextets(0);

quint32 decodeGroup(const char* group)
{
    return kFirst[uchar(group[0])] | kSecond[uchar(group[1])] | kThird[uchar(group[2])] |
           kFourth[uchar(group[3])];
}

void store(quint32 bits, char* bytes)
{
    bytes[0] = char(bits >> 16);
    bytes[1] = char(bits >> 8);
    bytes[2] = char(bits);
}

} // namespace

QByteArray decodeBase64(QByteArrayView text)
{
    if (text.isEmpty() || text.size() % 4 != 0) return {};
    const qsizetype padding = text.endsWith("==") ? 2 : text.endsWith('=') ? 1 : 0;
    QByteArray bytes(text.size() / 4 * 3, Qt::Uninitialized);
    quint32 seen = 0;
    char* out = bytes.data();
    const char* const last = text.end() - 4;
    for (const char* group = text.begin(); group < last; group += 4, out += 3) {
        const quint32 bits = decodeGroup(group);
        seen |= bits;
        store(bits, out);
    }
    const QByteArray ending = QByteArray(last, 4 - padding).leftJustified(4, 'A');
    const quint32 bits = decodeGroup(ending.constData());
    store(bits, out);
    if ((seen | bits) & kInvalid) return {};
    bytes.chop(padding);
    return bytes;
}

} // namespace vistrel
