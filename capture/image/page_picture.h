#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QList>
#include <QSize>

namespace vistrel
{

/// A page's pixels as the browser encoded them: one strip, or several stacked from top to bottom, all of the
/// same width. Each strip is a whole PNG or JPEG file.
class PagePicture
{
public:
    enum class Encoding { Png, Jpeg };

    PagePicture() = default;
    explicit PagePicture(Encoding encoding) : m_encoding(encoding) {}

    /// Adds the next strip downwards. Error::Kind::Format when encoded is no file of this picture's encoding
    /// or is not of the size expected; the picture is unchanged then.
    Result<void> addStrip(QByteArray encoded, QSize expected);

    [[nodiscard]] Encoding encoding() const { return m_encoding; }
    /// Pixels; empty while there is no strip.
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] bool isNull() const { return m_strips.isEmpty(); }
    [[nodiscard]] const QList<QByteArray>& strips() const { return m_strips; }

private:
    Encoding m_encoding = Encoding::Png;
    QSize m_size;
    QList<QByteArray> m_strips;
};

/// Width and height as the header of a PNG or JPEG file states them; Error::Kind::Format when it is none.
Result<QSize> encodedSize(const QByteArray& file, PagePicture::Encoding encoding);

} // namespace vistrel
