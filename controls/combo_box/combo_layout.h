#pragma once

#include <QRectF>

namespace vistrel
{

/// Where the parts of a combo box are, in twips; Combo1 and Pic2 count from pic1's corner, and pic1 cuts off
/// what lies outside it.
struct ComboLayout {
    QRectF pic1;   ///< The frame, as large as the control.
    QRectF Combo1; ///< The combo box proper: its own borders lie outside pic1.
    QRectF Pic2;   ///< The drop button.
};

/// For a control of that width, whatever its height, and a combo box proper of that height.
ComboLayout layoutCombo(float width, float comboHeight, bool RightToLeft);

} // namespace vistrel
