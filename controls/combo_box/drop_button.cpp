#include "controls/combo_box/drop_button.h"

#include "platform/drawing/surface.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color background = Color::rgb(27, 130, 180);
constexpr Color disabledBackground = Color::system(SystemColor::ButtonFace);
constexpr double disabledOpacity = 0.4;

} // namespace

DropButton::DropButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(u"Open list"_s);
}

void DropButton::setPicture(const Picture& picture)
{
    m_picture = picture;
    update();
}

void DropButton::paintEvent(QPaintEvent*)
{
    Surface canvas(ScaleMode::Pixels);
    canvas.setBackColor(background);
    canvas.resize(size(), devicePixelRatioF());
    const QSizeF natural = m_picture.size();
    canvas.drawPicture(m_picture, 0, 0, static_cast<float>(natural.width()),
                       static_cast<float>(natural.height()));
    QPainter painter(this);
    painter.fillRect(rect(), disabledBackground.toQColor());
    if (!isEnabled()) painter.setOpacity(disabledOpacity);
    painter.drawImage(QPointF(), canvas.image());
}

} // namespace vistrel
