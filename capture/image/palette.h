#pragma once

#include "capture/image/row_reader.h"
#include "platform/result.h"

#include <QList>
#include <QRgb>

#include <cstdlib>
#include <memory>

namespace vistrel
{

/// Chooses the colours of a GIF file. All pixels are counted, so that no colour is missed for being rare.
class PaletteChooser
{
public:
    PaletteChooser();

    /// Counts the pixels of rows, width pixels each.
    void add(const Rows& rows, int width);

    /// 1 to 256 colours: all that were counted when there are no more; else those that cover at least a
    /// thousandth of the picture, and the rest as the quantizing library thinks best. The same counts give
    /// the same colours. Error::Kind::Format when the library fails.
    [[nodiscard]] Result<QList<QRgb>> palette() const;

private:
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };

    std::unique_ptr<quint32[], Free> m_counts; // By colour; pages of colours that never occur take no memory.
    qint64 m_pixels = 0;
};

} // namespace vistrel
