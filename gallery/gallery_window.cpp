#include "gallery/gallery_window.h"

#include <QDockWidget>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int columns = 5;
constexpr int listedEvents = 500;

} // namespace

GalleryWindow::GalleryWindow() : m_events(new QPlainTextEdit)
{
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    for (const GalleryControl& control : galleryControls())
        layout->addWidget(group(control));
    layout->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    setCentralWidget(scroll);

    m_events->setReadOnly(true);
    m_events->setMaximumBlockCount(listedEvents);
    auto* dock = new QDockWidget(u"Events"_s);
    dock->setWidget(m_events);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    setWindowTitle(u"Control gallery"_s);
    resize(1100, 760);
}

QWidget* GalleryWindow::group(const GalleryControl& control)
{
    auto* box = new QGroupBox(control.name);
    auto* grid = new QGridLayout(box);
    grid->setSpacing(16);
    for (int at = 0; at < control.cases.size(); ++at)
        grid->addWidget(cell(control, control.cases[at]), at / columns, at % columns,
                        Qt::AlignTop | Qt::AlignLeft);
    grid->setColumnStretch(columns, 1);
    return box;
}

QWidget* GalleryWindow::cell(const GalleryControl& control, const GalleryCase& shown)
{
    auto* frame = new QWidget;
    ControlWidget* widget = makeControl(control, shown, nullptr);
    widget->setFixedSize(widget->size()); // The layout has no say in a control's size.
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(widget);
    layout->addWidget(new QLabel(shown.state));
    if (shown.pose != nullptr && !shown.opensWindow) m_models.append({widget, shown.pose});
    watch(*widget);
    return frame;
}

void GalleryWindow::strikePoses()
{
    for (const auto& [control, pose] : m_models)
        pose(*control);
}

// All signals of the control's own class but those that come with every repaint or every move of the mouse.
void GalleryWindow::watch(const ControlWidget& control)
{
    const QMetaObject& meta = *control.metaObject();
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("noteEvent()"));
    for (int at = ControlWidget::staticMetaObject.methodCount(); at < meta.methodCount(); ++at) {
        const QMetaMethod method = meta.method(at);
        if (method.methodType() == QMetaMethod::Signal && method.name() != "MouseMove")
            connect(&control, method, this, slot);
    }
}

void GalleryWindow::noteEvent()
{
    const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
    m_events->appendPlainText(sender()->objectName() + u": "_s + QString::fromLatin1(signal.name()));
}

} // namespace vistrel
