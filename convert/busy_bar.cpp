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
    const qint32 grown = width + stepTwips;
    return grown < frameWidth - borderTwips ? grown : stepTwips;
}

} // namespace vistrel
