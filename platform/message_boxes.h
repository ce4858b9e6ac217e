#pragma once

#include "platform/window_handle.h"

#include <QString>

namespace vistrel
{

/// The program's name, and the title of every message box that names no other.
inline constexpr QStringView programTitle = u"Vistrel";

/// The system's message boxes. Each call returns when the user has closed the box; meanwhile the event loop
/// runs and owner takes no input. Text is plain, its lines separated by "\r\n". Tests put a fake here.
class MessageBoxes
{
public:
    enum class Button { Yes, No };

    virtual ~MessageBoxes() = default;

    /// Information icon, OK button.
    virtual void information(WindowHandle owner, const QString& text) = 0;
    /// Critical-error icon, OK button.
    virtual void critical(WindowHandle owner, const QString& text) = 0;
    /// Exclamation icon, OK button.
    virtual void exclamation(WindowHandle owner, const QString& text, const QString& title) = 0;

    /// Question icon, Yes and No buttons; Enter presses defaultButton. A box that is closed in another way
    /// (Escape, its close button) answers No.
    [[nodiscard]] virtual Button question(WindowHandle owner, const QString& text, Button defaultButton) = 0;
};

} // namespace vistrel
