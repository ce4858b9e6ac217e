#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A caption on whatever lies behind it. Takes no input.
class Label : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(vistrel::Color ForeColor READ ForeColor WRITE setForeColor)

public:
    explicit Label(QWidget* parent = nullptr);

    /// Without a caption, left-aligned, in button text and the ambient font.
    void InitProperties() override;
    /// "Alignment" is 0 left, 1 right, 2 centred. Text is centred in height.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void setCaption(const QString& New_Caption);
    [[nodiscard]] Color ForeColor() const { return m_foreColor; }
    void setForeColor(Color New_ForeColor);

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_caption;
    qint32 m_alignment = 0;
    Color m_foreColor;
    Font m_font;
};

} // namespace vistrel
