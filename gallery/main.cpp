// Shows the controls, or writes their pictures.
#include "gallery/gallery_window.h"
#include "gallery/gradient_view.h"
#include "gallery/render.h"
#include "platform/drawing/color.h"

#include <QApplication>

#include <CLI/CLI.hpp>

#include <iostream>

using namespace vistrel;

namespace
{

struct Options {
    std::string renderFolder;
    double scale = 1;
    std::string gradientSize;
    float angle = 315;
    std::string color1 = "FFFFD0";
    std::string color2 = "400000";
    std::string gradientFile;
};

void declare(CLI::App& app, Options& options)
{
    const CLI::Validator colorText(
        [](const std::string& text) {
            const bool isHex = !text.empty() && text.size() <= 8 &&
                               text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
            return isHex ? std::string() : "not a colour in hexadecimal: " + text;
        },
        "BBGGRR");
    const CLI::Validator sizeText(
        [](const std::string& text) {
            int width = 0, height = 0;
            char rest = 0;
            const bool isSize = std::sscanf(text.c_str(), "%5dx%5d%c", &width, &height, &rest) == 2;
            return isSize && width > 1 && height > 1 ? std::string() : "not a size of at least 2x2: " + text;
        },
        "WxH");
    auto* render = app.add_option("--render", options.renderFolder, "Write one picture per control and state")
                       ->type_name("DIR");
    app.add_option("--scale", options.scale, "Device pixels per pixel, of the pictures and of the window")
        ->check(CLI::Range(1.0, 4.0));
    auto* size = app.add_option("--gradient", options.gradientSize, "Paint one gradient into FILE")
                     ->check(sizeText)
                     ->excludes(render);
    app.add_option("--angle", options.angle, "Degrees, 0 left to right")->needs(size);
    app.add_option("--color1", options.color1, "Where the gradient starts")->check(colorText)->needs(size);
    app.add_option("--color2", options.color2, "Where it ends")->check(colorText)->needs(size);
    auto* file = app.add_option("FILE", options.gradientFile, "The gradient's picture (.png)")->needs(size);
    size->needs(file);
}

Color color(const std::string& text) { return {QString::fromStdString(text).toUInt(nullptr, 16)}; }

int fail(const QString& message)
{
    std::cerr << "control-gallery: " << message.toStdString() << '\n';
    return 1;
}

int writeGradient(const Options& options)
{
    const QStringList parts = QString::fromStdString(options.gradientSize).split(u'x');
    Surface surface(ScaleMode::Pixels);
    surface.resize({parts[0].toInt(), parts[1].toInt()}, 1);
    const QString file = QString::fromStdString(options.gradientFile);
    if (!paintGradient(surface, color(options.color1), color(options.color2), options.angle)) return 1;
    return surface.image().save(file) ? 0 : fail(QStringLiteral("cannot write ") + file);
}

int writePictures(const Options& options)
{
    const auto count = renderGallery(QString::fromStdString(options.renderFolder));
    if (!count) return fail(count.error().text());
    std::cout << *count << " pictures in " << options.renderFolder << '\n';
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Shows every control of the program in every state.");
    Options options;
    declare(app, options);
    CLI11_PARSE(app, argc, argv)

    if (!options.gradientSize.empty()) return writeGradient(options);
    if (!options.renderFolder.empty()) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(classicPalette());
    if (!options.renderFolder.empty()) return writePictures(options);
    GalleryWindow window;
    window.show();
    QApplication::processEvents();
    window.strikePoses();
    return QApplication::exec();
}
