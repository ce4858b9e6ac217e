#include "convert/busy_bar.h"

namespace vistrel
{

namespace
{

constexpr qint32 stepTwips = 4;
constexpr qint32 borderTwips = 2;

} // namespace

qint32 nextBusyBarWidth(qint32 width, qint32 frameWidth)
{
    const qint32 innerWidth = frameWidth - borderTwips;
    const qint32 grown = width < innerWidth ? width + stepTwips : width;
    return grown < innerWidth ? grown : stepTwips;
}

} // namespace vistrel
