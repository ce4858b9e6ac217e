#include "controls/check_button/check_glyphs.h"

#include "platform/drawing/pixel_picture.h"

#include <array>
#include <optional>

namespace vistrel
{

namespace
{

// "#" is the outline, "." the inside, "x" the mark.

constexpr std::initializer_list<QStringView> squareRows = {
    u"###########", //
    u"#.........#", //
    u"#.......x.#", //
    u"#......xx.#", //
    u"#.x...xxx.#", //
    u"#.xx.xxx..#", //
    u"#.xxxxx...#", //
    u"#..xxx....#", //
    u"#...x.....#", //
    u"#.........#", //
    u"###########",
};

constexpr std::initializer_list<QStringView> roundRows = {
    u"    ##    ", //
    u"  ##..##  ", //
    u" #......# ", //
    u" #..xx..# ", //
    u"#..xxxx..#", //
    u"#..xxxx..#", //
    u" #..xx..# ", //
    u" #......# ", //
    u"  ##..##  ", //
    u"    ##    ",
};

constexpr Color outline = Color::rgb(165, 150, 132);
constexpr Color mark = Color::rgb(0, 0, 0);
constexpr Color white = Color::rgb(255, 255, 255);
constexpr Color beige = Color::rgb(222, 215, 198);
constexpr Color gray = Color::rgb(184, 184, 184);
constexpr Color rose = Color::rgb(222, 207, 206);
constexpr std::nullopt_t transparent = std::nullopt;

constexpr std::size_t looks = 4;
using Insides = std::array<std::optional<Color>, 2 * looks>;
using Glyphs = std::array<Picture, 2 * looks>;

// In the order of CheckLook, unchecked, then checked.
constexpr Insides squareInsides = {transparent, white, beige, transparent, transparent, gray, white, beige};
constexpr Insides roundInsides = {white, rose, rose, rose, white, transparent, transparent, transparent};

Glyphs makeGlyphs(std::initializer_list<QStringView> rows, const Insides& insides)
{
    Glyphs glyphs;
    for (std::size_t index = 0; index < glyphs.size(); ++index) {
        const bool checked = index >= looks;
        QMap<char16_t, Color> colors = {{u'#', outline}};
        if (insides[index]) colors[u'.'] = *insides[index];
        if (checked)
            colors[u'x'] = mark;
        else if (insides[index])
            colors[u'x'] = *insides[index];
        glyphs[index] = pixelPicture(rows, colors);
    }
    return glyphs;
}

} // namespace

const Picture& checkGlyph(qint32 BtnType, CheckLook look, bool checked)
{
    static const Glyphs squares = makeGlyphs(squareRows, squareInsides);
    static const Glyphs rounds = makeGlyphs(roundRows, roundInsides);
    const std::size_t index = static_cast<std::size_t>(look) + (checked ? looks : 0);
    return (BtnType == squareBtnType ? squares : rounds)[index];
}

} // namespace vistrel
