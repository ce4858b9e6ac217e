#pragma once

#include <QPointF>
#include <QtGlobal>

namespace vistrel
{

/// What the arrangement of a button's picture and caption depends on, in twips.
struct ButtonSizes {
    double width = 0;
    double height = 0;
    double pictureWidth = 0;
    double pictureHeight = 0;
    double textWidth = 0;
    double textHeight = 0;
};

/// Left-top corners of both, unrounded, and how far down and right a disabled button's white copy of the
/// caption lies.
struct ButtonLayout {
    QPointF picture;
    QPointF caption;
    int emboss = 0;
};

/// The middle of the button, for a picture without caption.
QPointF pictureAlone(const ButtonSizes& sizes);

/// A caption without picture: in the middle.
ButtonLayout captionAlone(const ButtonSizes& sizes);

/// Picture and caption. style 0: picture left, caption right, three equal gaps; 1: picture above, caption
/// below, three equal gaps; any other: the caption at the first of three gaps, the picture one picture's
/// width in from the right edge.
ButtonLayout arrangeButton(qint32 style, const ButtonSizes& sizes);

} // namespace vistrel
