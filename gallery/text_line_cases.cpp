#include "gallery/gallery_case.h"
#include "gallery/poses.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QSize lineSize(140, 17);

QList<PropertyBag::Entry> with(const QString& text, const QList<PropertyBag::Entry>& more = {})
{
    return QList<PropertyBag::Entry>{{u"Text"_s, text}} + more;
}

} // namespace

QList<GalleryCase> textLineCases()
{
    return {
        {u"flat"_s, lineSize, with(u"/home/user/Pictures"_s)},
        {u"hover"_s, lineSize, with(u"/home/user/Pictures"_s), hover},
        {u"focused"_s, lineSize, with(u"/home/user/Pictures"_s), focus},
        {u"no-hover-effect"_s, lineSize, with(u"30"_s, {{u"HoverEffect"_s, false}}), hover},
        {u"disabled"_s, lineSize, with(u"640"_s, {{u"Enabled"_s, false}})},
        {u"locked"_s, lineSize, with(u"cannot be typed in"_s, {{u"Locked"_s, true}})},
        {u"empty"_s, lineSize, {}},
        {u"least-height"_s, {140, 15}, with(u"fifteen pixels"_s)},
        {u"tall"_s, {140, 30}, with(u"thirty pixels"_s)},
        {u"least-width"_s, {3, 17}, with(u"x"_s)},
        {u"text-color"_s, lineSize, with(u"480"_s, {{u"ForeColor"_s, Color::rgb(192, 0, 0)}})},
        {u"border-color"_s,
         {140, 30},
         with(u"tall"_s, {{u"BorderColor"_s, Color::rgb(120, 200, 120)}}),
         hover},
        {u"large-font"_s, {140, 26}, with(u"Font"_s, {{u"Font"_s, Font{u"Verdana"_s, 12, true}}})},
        {u"selection"_s, lineSize, with(u"select this word"_s, {{u"SelStart"_s, 7}, {u"SelLength"_s, 4}}),
         focus},
        {u"right-to-left"_s, lineSize, with(u"\u05ea\u05de\u05d5\u05e0\u05d5\u05ea 25"_s), readRightToLeft},
    };
}

} // namespace vistrel
