#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

#include <ostream>

// How GoogleTest shows Qt's values when a comparison fails.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QColor& color, std::ostream* out) { *out << color.name().toStdString(); }
inline void PrintTo(const QPoint& point, std::ostream* out) { *out << point.x() << ',' << point.y(); }
inline void PrintTo(const QRect& rect, std::ostream* out)
{
    *out << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
