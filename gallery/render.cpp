#include "gallery/render.h"

#include "gallery/gallery_case.h"
#include "platform/drawing/design_text.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error cannotWrite(const QString& path) { return {Error::Kind::Io, u"cannot write %1"_s.arg(path), {}}; }

QString ratioMark()
{
    const qreal ratio = qApp->devicePixelRatio();
    return ratio == 1 ? QString() : u"@%1x"_s.arg(ratio);
}

// The control with the windows that its pose has opened, on the form's colour.
QImage withWindows(ControlWidget& control, const QWidget& form)
{
    const QPoint at = control.mapToGlobal(QPoint());
    QList<std::pair<QRect, QPixmap>> shown = {{QRect(at, control.size()), control.grab()}};
    QRect area = shown.first().first;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window == &form || !window->isVisible()) continue;
        shown.append({window->geometry(), window->grab()});
        area |= window->geometry();
    }
    QPixmap result(area.size() * qApp->devicePixelRatio());
    result.setDevicePixelRatio(qApp->devicePixelRatio());
    result.fill(form.palette().color(QPalette::Window));
    QPainter painter(&result);
    for (const auto& [place, pixmap] : shown)
        painter.drawPixmap(place.topLeft() - area.topLeft(), pixmap);
    painter.end();
    return result.toImage();
}

QImage picture(const GalleryControl& control, const GalleryCase& shown)
{
    QWidget form;
    ControlWidget* widget = makeControl(control, shown, &form);
    form.setFocusPolicy(Qt::StrongFocus); // Takes the focus that the only control on it would get.
    form.setFocus();
    form.resize(shown.sizePx + QSize(40, 40));
    widget->move(20, 20);
    form.show();
    QApplication::processEvents();
    if (shown.pose != nullptr) shown.pose(*widget);
    QApplication::processEvents();
    return shown.opensWindow ? withWindows(*widget, form) : widget->grab().toImage();
}

QString text(const PropertyValue& value)
{
    const auto* held = std::get_if<Picture>(&value);
    return held != nullptr ? u"%1 x %2 pixels"_s.arg(held->size().width()).arg(held->size().height())
                           : designValue(value);
}

QJsonObject entry(const GalleryControl& control, const GalleryCase& shown, const QString& file, QSize size)
{
    QJsonObject properties;
    for (const auto& [key, value] : shown.properties)
        properties.insert(key, text(value));
    return {{u"file"_s, file},          {u"control"_s, control.name},
            {u"state"_s, shown.state},  {u"properties"_s, properties},
            {u"width"_s, size.width()}, {u"height"_s, size.height()}};
}

Result<void> writeIndex(const QString& path, const QJsonArray& index)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return cannotWrite(path);
    file.write(QJsonDocument(index).toJson());
    return file.commit() ? Result<void>() : cannotWrite(path);
}

} // namespace

Result<int> renderGallery(const QString& folder)
{
    const QDir directory(folder);
    if (!directory.mkpath(u"."_s)) return cannotWrite(folder);
    QJsonArray index;
    for (const GalleryControl& control : galleryControls()) {
        for (const GalleryCase& shown : control.cases) {
            const QImage image = picture(control, shown);
            const QString file = control.name + u'-' + shown.state + ratioMark() + u".png"_s;
            if (!image.save(directory.filePath(file))) return cannotWrite(directory.filePath(file));
            index.append(entry(control, shown, file, image.size()));
        }
    }
    const auto written = writeIndex(directory.filePath(u"index%1.json"_s.arg(ratioMark())), index);
    if (!written) return written.error();
    return static_cast<int>(index.size());
}

} // namespace vistrel
