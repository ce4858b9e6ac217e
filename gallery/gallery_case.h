#pragma once

#include "platform/widgets/control_widget.h"

#include <QList>
#include <QSize>
#include <QString>

namespace vistrel
{

/// Puts a shown control into a state that no property stands for, by the events that lead there.
using Pose = void (*)(ControlWidget& control);

/// One control in one state.
struct GalleryCase {
    QString state; ///< Unique for the control; part of a file name.
    QSize sizePx;
    /// Set one after the other on a new control, by name.
    QList<PropertyBag::Entry> properties;
    Pose pose = nullptr;
    /// The pose opens a window, which the picture shows, too. The gallery's window leaves such a pose out.
    bool opensWindow = false;
};

/// All that the gallery knows of a control. To show another control, add an entry in registry.cpp and its
/// table.
struct GalleryControl {
    QString name; ///< The control's class.
    ControlWidget* (*make)(QWidget* parent);
    QList<GalleryCase> cases;
};

const QList<GalleryControl>& galleryControls();

/// A control of that case as a child of parent, sized and with its properties, not yet in its pose.
ControlWidget* makeControl(const GalleryControl& control, const GalleryCase& shown, QWidget* parent);

// The tables, one per control.
QList<GalleryCase> gradientCases();
QList<GalleryCase> flatButtonCases();
QList<GalleryCase> textLineCases();
QList<GalleryCase> checkButtonCases();
QList<GalleryCase> comboBoxCases();
QList<GalleryCase> sliderCases();

} // namespace vistrel
