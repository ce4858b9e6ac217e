#include "platform/forms/picture_box.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr Color buttonText = Color::system(SystemColor::ButtonText);
enum BackStyle : qint32 { Transparent, Opaque };

} // namespace

PictureBox::PictureBox(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent) {}

void PictureBox::InitProperties() { ReadProperties({}); }

void PictureBox::ReadProperties(const PropertyBag& bag)
{
    m_backStyle = bag.readInt32(u"BackStyle"_s, Opaque);
    drawingSurface().setBackColor(bag.readColor(u"BackColor"_s, buttonFace));
    drawingSurface().setForeColor(bag.readColor(u"ForeColor"_s, buttonText));
    drawingSurface().setFont(bag.readFont(u"Font"_s, ambientFont()));
    m_picture = bag.readPicture(u"Picture"_s);
    showPicture();
}

void PictureBox::WriteProperties(PropertyBag& bag) const
{
    bag.writeInt32(u"BackStyle"_s, m_backStyle, Opaque);
    bag.writeColor(u"BackColor"_s, surface().backColor(), buttonFace);
    bag.writeColor(u"ForeColor"_s, surface().foreColor(), buttonText);
    bag.writeFont(u"Font"_s, surface().font(), ambientFont());
    bag.writePicture(u"Picture"_s, m_picture);
}

void PictureBox::clearPicture()
{
    m_picture = {};
    showPicture();
}

void PictureBox::showPicture()
{
    Surface& target = drawingSurface();
    target.clear();
    const QSizeF size = m_picture.size();
    target.drawPicture(m_picture, 0, 0, static_cast<float>(size.width()), static_cast<float>(size.height()));
}

AccessibleFacts PictureBox::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Graphic;
    facts.canBePressed = true;
    return facts;
}

void PictureBox::accessiblePress() { Q_EMIT Click(); }

void PictureBox::surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y)
{
    Q_EMIT MouseDown(Button, Shift, X, Y);
}

void PictureBox::surfaceClick() { Q_EMIT Click(); }

void PictureBox::surfaceResize()
{
    showPicture();
    Q_EMIT Repaint();
}

void PictureBox::paintEvent(QPaintEvent* event)
{
    if (m_backStyle == Opaque) return ControlWidget::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect({0, 0}, m_picture.size()), m_picture.imageFor(devicePixelRatioF()));
}

} // namespace vistrel
