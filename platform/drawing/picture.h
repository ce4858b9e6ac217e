#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace vistrel
{

/// An immutable picture with its natural size, cheap to copy. It may hold the same picture at several device
/// pixel ratios; drawing takes the best one for the screen. A default-constructed one is "no picture".
class Picture
{
public:
    Picture() = default;
    /// A picture made by code. Its natural size is image's size divided by image's device pixel ratio. It has
    /// no name, so a property bag cannot save it.
    explicit Picture(const QImage& image);
    /// The picture ":/pictures/<name>" of the program's resources, with its "@2x" variant where there is one
    /// ("folder.png", "folder@2x.png"). Null when there is no such resource or it cannot be decoded.
    static Picture fromResource(const QString& name);

    [[nodiscard]] bool isNull() const { return m_images.isEmpty(); }
    /// Name in the resources; empty for pictures made by code.
    [[nodiscard]] const QString& name() const { return m_name; }
    /// Natural size in logical pixels; 0 x 0 for no picture.
    [[nodiscard]] QSize size() const;
    /// The image to draw on a surface of that ratio: the coarsest that is fine enough, else the finest.
    [[nodiscard]] QImage imageFor(qreal devicePixelRatio) const;

    /// Equal when both are the same resource, or share the same image, or both are no picture.
    friend bool operator==(const Picture& one, const Picture& other);

private:
    QString m_name;
    QList<QImage> m_images; // Ascending device pixel ratio, all of one natural size.
};

} // namespace vistrel
