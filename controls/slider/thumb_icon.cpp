#include "controls/slider/thumb_icon.h"

#include "platform/drawing/pixel_picture.h"

namespace vistrel
{

const Picture& thumbIcon()
{
    static const Picture icon = pixelPicture(
        {
            u"################", //
            u"#wwwwwwwwwwwwwg#", //
            u"#w............g#", //
            u"#w............g#", //
            u"#w..gggggggw..g#", //
            u"#w..g.g.g.gw..g#", //
            u"#w..gg.g.g.w..g#", //
            u"#w..g.g.g.gw..g#", //
            u"#w..gg.g.g.w..g#", //
            u"#w..g.g.g.gw..g#", //
            u"#w..gg.g.g.w..g#", //
            u"#w..wwwwwwww..g#", //
            u"#w............g#", //
            u"#w............g#", //
            u"#gggggggggggggg#", //
            u"################",
        },
        {{u'#', Color::rgb(0, 0, 0)},
         {u'w', Color::rgb(255, 255, 255)},
         {u'g', Color::rgb(128, 128, 128)},
         {u'.', Color::rgb(192, 192, 192)}});
    return icon;
}

} // namespace vistrel
