#pragma once

#include <QFont>
#include <QString>

namespace vistrel
{

/// A font as the controls' properties hold it. Points are 1/72 inch and a logical pixel is 1/96 inch on every
/// screen, so text keeps its place in layouts measured in twips.
struct Font {
    QString family = QStringLiteral("MS Sans Serif");
    double sizePt = 8.25;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    /// For drawing: the nearest whole pixel size (at least 1); where family is missing, the host's own
    /// sans-serif font stands in.
    [[nodiscard]] QFont toQFont() const;

    friend bool operator==(const Font&, const Font&) = default;
};

} // namespace vistrel
