#include "platform/forms/label.h"

#include "platform/drawing/text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonText = Color::system(SystemColor::ButtonText);
enum Alignment : qint32 { AlignLeft, AlignRight, AlignCentre };

} // namespace

Label::Label(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Label::InitProperties() { ReadProperties({}); }

void Label::ReadProperties(const PropertyBag& bag)
{
    m_alignment = bag.readInt32(u"Alignment"_s, AlignLeft);
    m_foreColor = bag.readColor(u"ForeColor"_s, buttonText);
    m_font = bag.readFont(u"Font"_s, ambientFont());
    m_caption = bag.readString(u"Caption"_s, {});
    update();
}

void Label::WriteProperties(PropertyBag& bag) const
{
    bag.writeInt32(u"Alignment"_s, m_alignment, AlignLeft);
    bag.writeColor(u"ForeColor"_s, m_foreColor, buttonText);
    bag.writeFont(u"Font"_s, m_font, ambientFont());
    bag.writeString(u"Caption"_s, m_caption, {});
}

void Label::setCaption(const QString& New_Caption)
{
    m_caption = New_Caption;
    update();
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    Q_EMIT propertyChanged(u"Caption"_s);
}

void Label::setForeColor(Color New_ForeColor)
{
    m_foreColor = New_ForeColor;
    update();
    Q_EMIT propertyChanged(u"ForeColor"_s);
}

AccessibleFacts Label::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::StaticText;
    facts.name = m_caption;
    return facts;
}

void Label::paintEvent(QPaintEvent*)
{
    const QSize text = textSizePx(m_caption, m_font);
    const int spare = width() - text.width();
    const int x = m_alignment == AlignCentre ? spare / 2 : m_alignment == AlignRight ? spare : 0;
    QPainter painter(this);
    paintText(painter, {x, (height() - text.height()) / 2}, m_caption, m_font, m_foreColor);
}

} // namespace vistrel
