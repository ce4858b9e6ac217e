#include "platform/forms/timer.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

Timer::Timer(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent)
{
    connect(&m_timer, &QTimer::timeout, this, &Timer::Tick);
}

void Timer::InitProperties() { ReadProperties({}); }

void Timer::ReadProperties(const PropertyBag& bag)
{
    m_timer.setInterval(bag.readInt32(u"Interval"_s, 0));
    setEnabled(bag.readBool(u"Enabled"_s, false));
}

void Timer::WriteProperties(PropertyBag& bag) const
{
    bag.writeInt32(u"Interval"_s, m_timer.interval(), 0);
    bag.writeBool(u"Enabled"_s, Enabled(), false);
}

void Timer::setEnabled(bool New_Enabled)
{
    if (New_Enabled)
        m_timer.start();
    else
        m_timer.stop();
}

} // namespace vistrel
