#include "batch/output_names.h"

#include "convert/naming.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qsizetype kLongestName = 255; // Bytes; what Linux file systems take.
const QString kThumbnailMark = u"_T"_s;

/// Credentials in an address are nobody else's business.
QString withoutCredentials(const QString& entry)
{
    static const QRegularExpression pattern(u"^([A-Za-z][A-Za-z0-9+.-]*://)[^/?#@]*@"_s);
    return QString(entry).replace(pattern, u"\\1"_s);
}

bool isDeviceName(const QString& name)
{
    static const QRegularExpression pattern(u"^(con|prn|aux|nul|com[0-9]|lpt[0-9])(\\.|$)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).hasMatch();
}

QString safeName(QString name)
{
    for (QChar& character : name) {
        if (character.unicode() < 0x20 || character.unicode() == 0x7f || u"\\?/:*|<>\""_s.contains(character))
            character = u'_';
    }
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    if (name.isEmpty() || name.startsWith(u'.') || name.startsWith(u'-') || isDeviceName(name))
        name.prepend(u'_');
    return name;
}

QString shortHash(const QString& name)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256).toHex().first(8));
}

QString cutToBytes(const QString& text, qsizetype bytes)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    qsizetype used = 0;
    while (finder.toNextBoundary() > 0) {
        used += text.sliced(end, finder.position() - end).toUtf8().size();
        if (used > bytes) break;
        end = finder.position();
    }
    return text.left(end);
}

} // namespace

QString plainName(const Entry& entry, Naming naming)
{
    if (naming == Naming::Number) return QString::number(entry.number);
    return safeName(urlSchemeName(withoutCredentials(entry.text), hostFiles(), PathStyle::host()));
}

QString fittedName(const QString& name, const QString& ending)
{
    const qsizetype room = kLongestName - ending.toUtf8().size();
    if (name.toUtf8().size() <= room) return name;
    const QString hash = u'-' + shortHash(name);
    return cutToBytes(name, room - hash.size()) + hash;
}

QString nameKey(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

OutputNames::OutputNames(const Plan& plan)
    : m_folder(QDir(plan.outputFolder).absolutePath() + u'/'),
      m_ending(extensionForImageType(qint32(plan.format))),
      m_naming(plan.naming),
      m_overwrite(plan.overwrite),
      m_thumbnails(plan.thumbnail.has_value())
{
}

OutputFiles OutputNames::claim(const Entry& entry)
{
    const QString plain = plainName(entry, m_naming);
    const QString ending = m_thumbnails ? kThumbnailMark + m_ending : m_ending;
    QString name = fittedName(plain, ending);
    for (qint64 k = 1; !isFree(name); ++k) {
        const QString counter = u'(' + QString::number(k) + u')';
        name = fittedName(plain, counter + ending) + counter;
    }
    m_taken.insert(nameKey(name));
    if (m_thumbnails) m_taken.insert(nameKey(name + kThumbnailMark));
    return filesOf(name);
}

OutputFiles OutputNames::filesOf(const QString& name) const
{
    return {m_folder + name + m_ending,
            m_thumbnails ? m_folder + name + kThumbnailMark + m_ending : QString()};
}

bool OutputNames::isFree(const QString& name) const
{
    if (m_taken.contains(nameKey(name))) return false;
    if (m_thumbnails && m_taken.contains(nameKey(name + kThumbnailMark))) return false;
    if (m_overwrite) return true;
    const OutputFiles files = filesOf(name);
    return !QFileInfo(files.image).isSymLink() && !QFileInfo::exists(files.image) &&
           !(m_thumbnails && QFileInfo::exists(files.thumbnail));
}

} // namespace vistrel
