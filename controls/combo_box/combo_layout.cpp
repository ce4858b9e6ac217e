#include "controls/combo_box/combo_layout.h"

namespace vistrel
{

namespace
{

constexpr double frameHeight = 250;
constexpr double comboOffset = -30;
constexpr double comboExcess = 50;
constexpr QSizeF buttonSize(250, 270);

} // namespace

ComboLayout layoutCombo(float width, float comboHeight, bool RightToLeft)
{
    return {{0, 0, width, frameHeight},
            {comboOffset, comboOffset, width + comboExcess, comboHeight},
            {{RightToLeft ? 0 : width - buttonSize.width(), 0}, buttonSize}};
}

} // namespace vistrel
