#pragma once

#include "platform/drawing/color.h"

#include <QWidget>

class QPainter;

namespace vistrel
{

/// Clips form to its client rectangle, so that a frame or caption of the system's is cut away. The region is
/// that of the moment.
void MakeFormRegion(QWidget& form);

/// Draws the one-pixel frame of a form that large.
void drawFormFrame(QPainter& painter, QSize size, Color color);

/// Starts the system's own move of form, which follows the pointer until the button is released. Does nothing
/// while form is maximised.
void DragForm(QWidget& form);

} // namespace vistrel
