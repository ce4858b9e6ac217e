#include "platform/drawing/color.h"

#include <array>

namespace vistrel
{

namespace
{

constexpr quint32 systemBit = 0x80000000U;
constexpr Color black = Color::rgb(0, 0, 0);
constexpr Color white = Color::rgb(255, 255, 255);
constexpr Color gray = Color::rgb(128, 128, 128);
constexpr Color face = Color::rgb(212, 208, 200);
constexpr Color navy = Color::rgb(10, 36, 106);

// Indexed by SystemColor.
constexpr std::array systemColors = {
    face,                      // ScrollBar
    Color::rgb(58, 110, 165),  // Desktop
    navy,                      // ActiveCaption
    gray,                      // InactiveCaption
    face,                      // Menu
    white,                     // Window
    black,                     // WindowFrame
    black,                     // MenuText
    black,                     // WindowText
    white,                     // CaptionText
    face,                      // ActiveBorder
    face,                      // InactiveBorder
    gray,                      // AppWorkspace
    navy,                      // Highlight
    white,                     // HighlightText
    face,                      // ButtonFace
    gray,                      // ButtonShadow
    gray,                      // GrayText
    black,                     // ButtonText
    face,                      // InactiveCaptionText
    white,                     // ButtonHighlight
    Color::rgb(64, 64, 64),    // DarkShadow3D
    face,                      // Light3D
    black,                     // TooltipText
    Color::rgb(255, 255, 225), // TooltipBackground
};

QColor systemQColor(SystemColor index) { return Color::system(index).toQColor(); }

} // namespace

bool Color::isSystem() const
{
    return (value & systemBit) != 0 && (value & ~systemBit) < systemColors.size();
}

Color Color::resolved() const { return isSystem() ? systemColors[value & ~systemBit] : *this; }

QColor Color::toQColor() const
{
    const auto bits = static_cast<int>(resolved().value & 0xFFFFFFU);
    return {bits & 0xFF, bits >> 8 & 0xFF, bits >> 16};
}

QPalette classicPalette()
{
    QPalette palette(systemQColor(SystemColor::ButtonFace));
    const std::initializer_list<std::pair<QPalette::ColorRole, SystemColor>> roles = {
        {QPalette::Window, SystemColor::ButtonFace},
        {QPalette::WindowText, SystemColor::ButtonText},
        {QPalette::Base, SystemColor::Window},
        {QPalette::AlternateBase, SystemColor::Window},
        {QPalette::Text, SystemColor::WindowText},
        {QPalette::PlaceholderText, SystemColor::GrayText},
        {QPalette::Button, SystemColor::ButtonFace},
        {QPalette::ButtonText, SystemColor::ButtonText},
        {QPalette::BrightText, SystemColor::ButtonHighlight},
        {QPalette::Light, SystemColor::ButtonHighlight},
        {QPalette::Midlight, SystemColor::Light3D},
        {QPalette::Mid, SystemColor::ButtonShadow},
        {QPalette::Dark, SystemColor::ButtonShadow},
        {QPalette::Shadow, SystemColor::DarkShadow3D},
        {QPalette::Highlight, SystemColor::Highlight},
        {QPalette::HighlightedText, SystemColor::HighlightText},
        {QPalette::ToolTipBase, SystemColor::TooltipBackground},
        {QPalette::ToolTipText, SystemColor::TooltipText},
    };
    for (const auto& [role, index] : roles)
        palette.setColor(role, systemQColor(index));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, systemQColor(SystemColor::GrayText));
    return palette;
}

} // namespace vistrel
