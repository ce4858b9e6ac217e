#include "controls/value_tip/frm_valuetips.h"

#include "platform/drawing/text.h"

#include <QPainter>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QPointer<frmValuetips> theTip;

} // namespace

frmValuetips& frmValuetips::instance(QWidget& slider)
{
    if (theTip == nullptr) theTip = new frmValuetips(slider);
    return *theTip;
}

void frmValuetips::Close() { delete theTip; }

frmValuetips::frmValuetips(QWidget& slider)
    : QWidget(&slider, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_surface(ScaleMode::Pixels),
      m_lblTip(new QLabel(this))
{
    setObjectName(u"frmValuetips"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_surface.setBackColor(Color::system(SystemColor::TooltipBackground));
    m_lblTip->setObjectName(u"lblTip"_s);
    m_lblTip->move(1, 1);
    m_lblTip->setFont(Font{}.toQFont());
    QPalette palette;
    palette.setColor(QPalette::WindowText, Color::system(SystemColor::WindowText).toQColor());
    m_lblTip->setPalette(palette);
}

void frmValuetips::showValue(qint32 value, const TipAnchor& anchor)
{
    const QString text = QString::number(value);
    m_lblTip->setText(text);
    m_lblTip->resize(textSizePx(text, Font{}));
    setGeometry(tipGeometry(anchor, m_lblTip->size()));
    show();
    raise();
}

void frmValuetips::resizeEvent(QResizeEvent*) { Form_Resize(); }

void frmValuetips::Form_Resize()
{
    constexpr Color light = Color::system(SystemColor::Light3D);
    constexpr Color dark = Color::system(SystemColor::DarkShadow3D);
    m_surface.resize(size(), devicePixelRatioF());
    const float width = m_surface.ScaleWidth(), height = m_surface.ScaleHeight();
    m_surface.clear();
    m_surface.drawLine(0, 0, width, 0, light);
    m_surface.drawLine(0, 0, 0, height, light);
    m_surface.drawLine(width - 1, 0, width - 1, height, dark);
    m_surface.drawLine(0, height - 1, width, height - 1, dark);
}

void frmValuetips::paintEvent(QPaintEvent*)
{
    if (m_surface.image().devicePixelRatio() != devicePixelRatioF()) Form_Resize(); // On another screen now.
    QPainter(this).drawImage(QPointF(), m_surface.image());
}

} // namespace vistrel
