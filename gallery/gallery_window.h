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

private Q_SLOTS:
    void noteEvent();

private:
    QWidget* group(const GalleryControl& control);
    QWidget* cell(const GalleryControl& control, const GalleryCase& shown);
    void watch(const ControlWidget& control);

    QPlainTextEdit* m_events;
};

} // namespace vistrel
