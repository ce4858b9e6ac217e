#pragma once

#include "platform/drawing/picture.h"

#include <QAbstractButton>

namespace vistrel
{

/// The drawn drop button of a combo box: a picture at its left top corner, in its natural size, on a blue
/// background. Paler when disabled. Never takes the focus.
class DropButton : public QAbstractButton
{
public:
    explicit DropButton(QWidget* parent);

    [[nodiscard]] const Picture& picture() const { return m_picture; }
    void setPicture(const Picture& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture;
};

} // namespace vistrel
