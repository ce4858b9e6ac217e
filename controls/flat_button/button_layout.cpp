#include "controls/flat_button/button_layout.h"

namespace vistrel
{

namespace
{

constexpr int wideEmboss = 25;
constexpr int narrowEmboss = 10;

double middle(double whole, double part) { return (whole - part) / 2; }

} // namespace

QPointF pictureAlone(const ButtonSizes& sizes)
{
    return {middle(sizes.width, sizes.pictureWidth), middle(sizes.height, sizes.pictureHeight)};
}

ButtonLayout captionAlone(const ButtonSizes& sizes)
{
    return {{}, {middle(sizes.width, sizes.textWidth), middle(sizes.height, sizes.textHeight)}, wideEmboss};
}

ButtonLayout arrangeButton(qint32 style, const ButtonSizes& sizes)
{
    const double pictureMiddle = middle(sizes.height, sizes.pictureHeight);
    const double captionMiddle = middle(sizes.height, sizes.textHeight);
    const double gapAcross = (sizes.width - sizes.pictureWidth - sizes.textWidth) / 3;
    const double gapDown = (sizes.height - sizes.pictureHeight - sizes.textHeight) / 3;
    switch (style) {
    case 0:
        return {{gapAcross, pictureMiddle}, {sizes.pictureWidth + 2 * gapAcross, captionMiddle}, wideEmboss};
    case 1:
        return {{middle(sizes.width, sizes.pictureWidth), gapDown},
                {middle(sizes.width, sizes.textWidth), sizes.pictureHeight + 2 * gapDown},
                wideEmboss};
    default:
        return {
            {sizes.width - 2 * sizes.pictureWidth, pictureMiddle}, {gapAcross, captionMiddle}, narrowEmboss};
    }
}

} // namespace vistrel
