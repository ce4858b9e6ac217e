#include "batch/output_names.h"

#include "convert/naming.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QTextBoundaryFinder>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qsizetype kLongestName = 255;  // Bytes; what Linux file systems take.
constexpr qsizetype kLongestTitle = 120; // Bytes in a name.
const QString kThumbnailMark = u"_T"_s;
const QRegularExpression kToken(u"\\{([^{}]*)\\}"_s);

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

/// The path of an address, or the name of a local file, without the file's ending.
QString pathPart(const QUrl& url)
{
    if (url.isLocalFile()) return QFileInfo(url.toLocalFile()).completeBaseName();
    const QString path = url.path().sliced(url.path().startsWith(u'/') ? 1 : 0);
    return path.isEmpty() ? u"index"_s : path;
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

/// A page's title on one line, without what would show another name than there is.
QString titlePart(const QString& title)
{
    static const QRegularExpression invisible(
        u"[\\x{80}-\\x{9f}\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]"_s);
    const QString shown = QString(title).remove(invisible).simplified();
    return shown.isEmpty() ? u"untitled"_s : cutToBytes(shown, kLongestTitle);
}

QString shortHash(const QString& name)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256).toHex().first(8));
}

bool fileOrLinkExists(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

Result<void> checkNameTemplate(const QString& text)
{
    static const QStringList known{u"index"_s, u"host"_s,  u"path"_s,  u"title"_s,
                                   u"date"_s,  u"width"_s, u"height"_s};
    bool varies = false;
    for (const auto& match : kToken.globalMatch(text)) {
        const QString token = match.captured(1);
        if (!known.contains(token))
            return Error{
                Error::Kind::Usage,
                u"%1 is no part of a name; known are {%2}"_s.arg(match.captured(), known.join(u"}, {"_s)),
                {}};
        varies = varies || token != u"date";
    }
    if (varies) return {};
    return Error{
        Error::Kind::Usage,
        u"\"%1\" gives every file the same name; use url, number, or a template such as {index}-{host}"_s.arg(
            text),
        {}};
}

QString plainName(const Entry& entry, const QString& naming, const PageFacts& facts, QDate today)
{
    if (naming == u"number") return QString::number(entry.number);
    const QString text = withoutCredentials(entry.text);
    if (naming == u"url") return safeName(urlSchemeName(text, hostFiles(), PathStyle::host()));
    const QUrl url = QUrl::fromUserInput(withoutCredentials(entry.target));
    const QHash<QString, QString> values{{u"index"_s, QString::number(entry.number)},
                                         {u"host"_s, url.isLocalFile() ? u"local"_s : url.host()},
                                         {u"path"_s, pathPart(url)},
                                         {u"title"_s, titlePart(facts.title)},
                                         {u"date"_s, today.toString(Qt::ISODate)},
                                         {u"width"_s, QString::number(facts.size.width())},
                                         {u"height"_s, QString::number(facts.size.height())}};
    QString name;
    qsizetype end = 0;
    for (const auto& match : kToken.globalMatch(naming)) {
        name += naming.sliced(end, match.capturedStart() - end) + values.value(match.captured(1));
        end = match.capturedEnd();
    }
    return safeName(name + naming.sliced(end));
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

OutputNames::OutputNames(const Plan& plan, Journal& journal)
    : m_journal(journal),
      m_folder(QDir(plan.outputFolder).absolutePath() + u'/'),
      m_naming(plan.naming),
      m_overwrite(plan.overwrite),
      m_thumbnails(plan.thumbnail.has_value())
{
    for (const ImageFormat format : plan.formats)
        m_endings.append(extensionForImageType(qint32(format)));
    m_longestEnding = m_thumbnails ? kThumbnailMark + m_endings.first() : m_endings.first();
}

bool OutputNames::dependOnPage() const
{
    return m_naming.contains(u"{width}"_s) || m_naming.contains(u"{height}"_s) ||
           m_naming.contains(u"{title}"_s);
}

Result<QString> OutputNames::claim(const Entry& entry, const PageFacts& facts)
{
    const QString plain = plainName(entry, m_naming, facts);
    QString name = fittedName(plain, m_longestEnding);
    const QString key = nameKey(name);
    for (;;) {
        const auto taken = take(name);
        if (!taken) return taken.error();
        if (*taken) return name;
        const auto number = m_journal.nextNumber(key);
        if (!number) return number.error();
        const QString counter = u'(' + QString::number(*number) + u')';
        name = fittedName(plain, counter + m_longestEnding) + counter;
    }
}

/// Claims name, and that of its thumbnail, unless something has it already.
Result<bool> OutputNames::take(const QString& name)
{
    if (!m_overwrite && existsOnDisk(name)) return false;
    const auto claimed = m_journal.claim(nameKey(name));
    if (!claimed || !*claimed || !m_thumbnails) return claimed;
    return m_journal.claim(nameKey(name + kThumbnailMark));
}

OutputFiles OutputNames::filesOf(const QString& name) const
{
    OutputFiles files;
    for (const QString& ending : m_endings)
        files.images.append(m_folder + name + ending);
    if (m_thumbnails) files.thumbnail = m_folder + name + kThumbnailMark + m_endings.first();
    return files;
}

bool OutputNames::existsOnDisk(const QString& name) const
{
    const OutputFiles files = filesOf(name);
    return std::any_of(files.images.begin(), files.images.end(), fileOrLinkExists) ||
           (m_thumbnails && fileOrLinkExists(files.thumbnail));
}

} // namespace vistrel
