#pragma once

#include <QColor>
#include <QPalette>

namespace vistrel
{

/// The host's named colours. The values are the indices that a Color carries in its low bits.
enum class SystemColor : quint32 {
    ScrollBar,
    Desktop,
    ActiveCaption,
    InactiveCaption,
    Menu,
    Window,
    WindowFrame,
    MenuText,
    WindowText,
    CaptionText,
    ActiveBorder,
    InactiveBorder,
    AppWorkspace,
    Highlight,
    HighlightText,
    ButtonFace,
    ButtonShadow,
    GrayText,
    ButtonText,
    InactiveCaptionText,
    ButtonHighlight,
    DarkShadow3D,
    Light3D,
    TooltipText,
    TooltipBackground,
};

/// A 32-bit colour. Plain: 0x00BBGGRR, red in the low byte. With bit 31 set the low bits are the index of a
/// SystemColor (0x8000000F is the button face).
struct Color {
    quint32 value = 0;

    static constexpr Color rgb(int red, int green, int blue)
    {
        return {static_cast<quint32>(red | green << 8 | blue << 16)};
    }
    static constexpr Color system(SystemColor index) { return {0x80000000U | static_cast<quint32>(index)}; }

    /// True for bit 31 with an index that the table knows (0 to 24).
    [[nodiscard]] bool isSystem() const;
    /// The plain colour behind a system colour, from the one table of light classic values; any other value
    /// as it is. The desktop's theme has no say.
    [[nodiscard]] Color resolved() const;
    /// What is painted: the low 24 bits of resolved(), opaque.
    [[nodiscard]] QColor toQColor() const;

    friend bool operator==(const Color&, const Color&) = default;
};

/// A palette from the same table, for the toolkit's own widgets, so that a dark desktop theme never mixes
/// with the controls.
QPalette classicPalette();

} // namespace vistrel
