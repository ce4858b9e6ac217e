#pragma once

#include "platform/code_page.h"

#include <QList>

namespace vistrel
{

/// Content of a profile file: lines "key=value" under section headers "[section]". Sections and keys match
/// without regard to case; of several equal ones the first counts. Everything that a change does not touch
/// keeps its bytes: comments, unknown keys, the order, the style of the line ends.
class Profile
{
public:
    /// Values are cut to this many characters on reading (a buffer of 260 less its final NUL).
    static constexpr qsizetype valueLimit = 259;

    explicit Profile(CodePage codePage, QByteArrayView bytes = {});

    /// The value without blanks and tabs around it and then without one pair of quotes (either kind).
    /// Empty when the section or the key is missing.
    [[nodiscard]] QString value(QStringView section, QStringView key) const;

    /// Replaces the key's value in place, or adds the key after the last line of its section that is not
    /// blank, or adds the section at the end. New lines end as the file's first line does, else in CR LF.
    /// A line break in value, which the format cannot hold, becomes a blank.
    void setValue(QStringView section, QStringView key, const QString& value);

    [[nodiscard]] QByteArray bytes() const { return m_lines.join(); }

private:
    /// Lines from first up to, not including, end; the header is not among them. first is -1 for no section.
    struct Section {
        qsizetype first;
        qsizetype end;
    };

    [[nodiscard]] Section find(QStringView name) const;
    [[nodiscard]] qsizetype lineOf(Section section, QStringView key) const; // -1 when there is none.
    [[nodiscard]] QString text(qsizetype line) const;                       // Without its line end.
    void insert(qsizetype line, const QByteArray& content);

    CodePage m_codePage;
    QByteArrayList m_lines; // Each with its line end; only the last one may lack it.
};

} // namespace vistrel
