#pragma once

#include "platform/message_boxes.h"

namespace vistrel
{

/// The message boxes of the desktop. Owners are widgets.
class DesktopMessageBoxes final : public MessageBoxes
{
public:
    void information(WindowHandle owner, const QString& text) override;
    void critical(WindowHandle owner, const QString& text) override;
    void exclamation(WindowHandle owner, const QString& text, const QString& title) override;
    [[nodiscard]] Button question(WindowHandle owner, const QString& text, Button defaultButton) override;
};

} // namespace vistrel
