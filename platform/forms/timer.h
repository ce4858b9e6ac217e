#pragma once

#include "platform/widgets/control_widget.h"

#include <QTimer>

namespace vistrel
{

/// A timer as a form's control; it is never seen.
class Timer : public ControlWidget
{
    Q_OBJECT

public:
    explicit Timer(QWidget* parent = nullptr);

    /// Off, with no interval.
    void InitProperties() override;
    /// "Interval" is in ms.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    [[nodiscard]] bool Enabled() const { return m_timer.isActive(); }
    /// Switched on, it raises the first Tick after a whole interval.
    void setEnabled(bool New_Enabled);

Q_SIGNALS:
    void Tick();

private:
    QTimer m_timer;
};

} // namespace vistrel
