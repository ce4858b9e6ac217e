#include "platform/widgets/pointer_shapes.h"

#include "platform/runtime_error.h"

#include <QPixmap>

#include <array>

namespace vistrel
{

namespace
{

constexpr qint16 customPointer = 99;

// From MousePointer 1 on.
constexpr std::array shapes = {
    Qt::ArrowCursor,     Qt::CrossCursor,     Qt::IBeamCursor,     Qt::ArrowCursor,     Qt::SizeAllCursor,
    Qt::SizeBDiagCursor, Qt::SizeVerCursor,   Qt::SizeFDiagCursor, Qt::SizeHorCursor,   Qt::UpArrowCursor,
    Qt::WaitCursor,      Qt::ForbiddenCursor, Qt::BusyCursor,      Qt::WhatsThisCursor, Qt::SizeAllCursor,
};

} // namespace

QCursor pointerShape(qint16 MousePointer, const Picture& icon, Qt::CursorShape defaultShape)
{
    if (MousePointer == 0 || (MousePointer == customPointer && icon.isNull())) return defaultShape;
    if (MousePointer == customPointer) return QCursor(QPixmap::fromImage(icon.imageFor(1)));
    if (MousePointer < 0 || MousePointer > static_cast<qint16>(shapes.size()))
        throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    return shapes.at(static_cast<std::size_t>(MousePointer - 1));
}

} // namespace vistrel
