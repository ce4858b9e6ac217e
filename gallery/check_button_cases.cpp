#include "gallery/gallery_case.h"
#include "gallery/poses.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using Entries = QList<PropertyBag::Entry>;

constexpr QSize buttonSize(140, 17);

// The button watches the real pointer, which is elsewhere.
void stay(ControlWidget& control) { control.findChild<QTimer*>(u"Timer1"_s)->stop(); }

void hoverAndStay(ControlWidget& control)
{
    hover(control);
    stay(control);
}

void pressAndStay(ControlWidget& control)
{
    press(control);
    stay(control);
}

// Every look of one kind of glyph, unchecked and checked.
QList<GalleryCase> looks(const QString& kind, int BtnType)
{
    QList<GalleryCase> cases;
    for (const bool checked : {false, true}) {
        const QString state = kind + (checked ? u"-checked"_s : QString());
        const auto with = [&](const Entries& more) {
            return Entries{{u"Caption"_s, u"Create thumbnail"_s},
                           {u"BtnType"_s, BtnType},
                           {u"Value"_s, checked}} +
                   more;
        };
        cases += {{state, buttonSize, with({})},
                  {state + u"-hover"_s, buttonSize, with({}), hoverAndStay},
                  {state + u"-pressed"_s, buttonSize, with({}), pressAndStay},
                  {state + u"-disabled"_s, buttonSize, with({{u"Enabled"_s, false}})}};
    }
    return cases;
}

Entries square(const QString& caption, const Entries& more = {})
{
    return Entries{{u"Caption"_s, caption}, {u"BtnType"_s, 2}, {u"Value"_s, true}} + more;
}

} // namespace

QList<GalleryCase> checkButtonCases()
{
    return QList<GalleryCase>{{u"new"_s, buttonSize, {}}} + looks(u"square"_s, 2) + looks(u"round"_s, 1) +
           QList<GalleryCase>{
               {u"colours"_s, buttonSize,
                square(u"Overwrite"_s,
                       {{u"BackColor"_s, Color::rgb(0, 65, 99)}, {u"ForeColor"_s, Color::rgb(255, 255, 0)}})},
               {u"hot-colours"_s, buttonSize,
                square(u"Overwrite"_s, {{u"HotColor"_s, Color::rgb(192, 0, 0)}, {u"HotUnderLine"_s, false}}),
                hoverAndStay},
               {u"tall"_s, {140, 40}, square(u"Forty pixels"_s)},
               {u"low"_s, {140, 11}, square(u"Eleven pixels"_s)},
               {u"large-font"_s, {140, 24}, square(u"Large"_s, {{u"Font"_s, Font{u"Verdana"_s, 14, true}}})},
               {u"too-narrow"_s, {60, 17}, square(u"Open the output folder"_s)},
               {u"right-to-left"_s, buttonSize, square(u"\u05ea\u05de\u05d5\u05e0\u05d4 (3)"_s)},
           };
}

} // namespace vistrel
