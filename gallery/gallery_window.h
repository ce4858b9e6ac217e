#pragma once

#include "gallery/gallery_case.h"

#include <QMainWindow>

class QPlainTextEdit;

namespace vistrel
{

/// Every control in every state, alive, with a list of the events that they raise.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    GalleryWindow();

    /// Puts the controls into their poses; the window must be shown.
    void strikePoses();

private Q_SLOTS:
    void noteEvent();

private:
    QWidget* group(const GalleryControl& control);
    QWidget* cell(const GalleryControl& control, const GalleryCase& shown);
    void watch(const ControlWidget& control);

    struct Model {
        ControlWidget* control;
        Pose pose;
    };

    QList<Model> m_models;
    QPlainTextEdit* m_events;
};

} // namespace vistrel
