#include "app/mod_form.h"

#include "platform/forms/window_move.h"

#include <QPainter>

namespace vistrel
{

void MakeFormRegion(QWidget& form) { form.setMask(QRegion(form.rect())); }

void drawFormFrame(QPainter& painter, QSize size, Color color)
{
    const QRect outside({0, 0}, size);
    for (const QRect& line : QRegion(outside) - outside.adjusted(1, 1, -1, -1))
        painter.fillRect(line, color.toQColor());
}

void DragForm(QWidget& form)
{
    if (!form.isMaximized()) startWindowMove(form);
}

} // namespace vistrel
