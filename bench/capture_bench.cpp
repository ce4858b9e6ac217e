// Where the time and the memory of one capture go: a Markdown table of medians for each format, over pages of
// about 1, 10 and 50 million pixels.
#include "bench/tree_memory.h"
#include "capture/image/image_encoder.h"
#include "capture/page/page_run.h"
#include "platform/whole_file.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <QCoroTask>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <optional>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kRounds = 3;
constexpr int kQuality = 80;
constexpr int kWidth = 1280;
constexpr int kSectionRows = 400;

constexpr std::array kMillionPixels{1, 10, 50};

struct NamedFormat {
    QString name;
    ImageFormat format;
};

/// Milliseconds and bytes of one conversion.
struct Figures {
    qint64 load = 0;
    qint64 settle = 0;
    qint64 picture = 0; ///< Drawing, encoding in the browser, and the way over the pipe.
    qint64 encode = 0;
    qint64 encodeWork = 0; ///< Of the processor, on all threads.
    qint64 write = 0;
    qint64 ownPeak = 0;
    qint64 browserPeak = 0;
    qint64 file = 0;
};

QString section(int number)
{
    const QString words =
        u"Evening light on the harbour wall, and the ferry waits for the tide. "_s.repeated(9);
    return u"<section style='background:linear-gradient(%1deg,hsl(%2,60%,85%),hsl(%3,50%,60%))'>"
           "<h2>Section %4</h2><p>%5</p><div></div><div></div><div></div></section>"_s.arg(number * 37 % 360)
               .arg(number * 53 % 360)
               .arg(number * 91 % 360)
               .arg(number)
               .arg(words);
}

/// A page of text, boxes and gradients, exactly rows px tall.
QString pageOf(int rows)
{
    QString page = u"<!doctype html><meta charset=utf-8><style>"
                   "body{margin:0;height:%1px;overflow:hidden;font:16px/1.5 sans-serif}"
                   "section{box-sizing:border-box;height:%2px;padding:20px;overflow:hidden}"
                   "div{display:inline-block;width:280px;height:120px;margin:8px;border-radius:12px;"
                   "background:#fffa;border:2px solid #3568;box-shadow:0 4px 12px #0004}</style>"_s.arg(rows)
                       .arg(kSectionRows);
    for (int top = 0, number = 1; top < rows; top += kSectionRows, ++number)
        page += section(number);
    return page;
}

/// shot outlives the task.
Task<> runInto(std::shared_ptr<PageRun> run, std::optional<PageShot>& shot)
{
    auto taken = co_await run->run();
    if (!taken) qFatal("%s", qPrintable(taken.error().text()));
    shot = std::move(*taken);
}

class CaptureBench
{
public:
    CaptureBench()
    {
        const auto started = QCoro::waitFor(m_browser->start({}));
        if (!started) qFatal("%s", qPrintable(started.error().text()));
    }

    Figures medianOf(const NamedFormat& format, int millionPixels)
    {
        std::array<Figures, kRounds> rounds;
        for (Figures& round : rounds)
            round = convert(format, writePage(millionPixels));
        Figures median;
        for (const auto member :
             {&Figures::load, &Figures::settle, &Figures::picture, &Figures::encode, &Figures::encodeWork,
              &Figures::write, &Figures::ownPeak, &Figures::browserPeak, &Figures::file}) {
            std::nth_element(rounds.begin(), rounds.begin() + kRounds / 2, rounds.end(),
                             [member](const Figures& a, const Figures& b) { return a.*member < b.*member; });
            median.*member = rounds[kRounds / 2].*member;
        }
        return median;
    }

private:
    QUrl writePage(int millionPixels)
    {
        const QString path = m_folder.filePath(u"page-%1.html"_s.arg(millionPixels));
        QFile file(path);
        const QByteArray page = pageOf(millionPixels * 1000000 / kWidth).toUtf8();
        if (!file.open(QIODevice::WriteOnly) || file.write(page) != page.size())
            qFatal("%s cannot be written", qPrintable(path));
        return QUrl::fromLocalFile(path);
    }

    Figures convert(const NamedFormat& format, const QUrl& page)
    {
        Figures figures;
        resetOwnPeak();
        const TreeMemory browserMemory(m_browser->processId());
        const PageShot shot = take(format, page, figures);
        QElapsedTimer clock;
        clock.start();
        WholeFile file(m_folder.path());
        const std::clock_t begun = std::clock();
        const auto encoded = encodeImage(shot.picture, format.format, kQuality, file);
        if (!encoded) qFatal("%s", qPrintable(encoded.error().text()));
        figures.encodeWork = (std::clock() - begun) * 1000 / CLOCKS_PER_SEC;
        figures.encode = clock.restart();
        const auto problem = file.moveTo(m_folder.filePath(u"image."_s + format.name), IfExists::Replace);
        if (problem) qFatal("%s", qPrintable(problem->message));
        figures.write = clock.elapsed();
        figures.ownPeak = ownPeakBytes();
        figures.browserPeak = browserMemory.peakBytes();
        figures.file = file.size();
        return figures;
    }

    PageShot take(const NamedFormat& format, const QUrl& page, Figures& figures)
    {
        PageRequest request;
        request.addresses = {page};
        request.jpegQuality = kQuality;
        if (format.format == ImageFormat::Jpeg) request.encoding = PagePicture::Encoding::Jpeg;
        const auto run = PageRun::create(m_browser, request);
        QElapsedTimer clock;
        QObject::connect(run.get(), &PageRun::progress, run.get(), [&](int percent) {
            if (percent == PageRun::kLoaded) figures.load = clock.elapsed();
            if (percent == PageRun::kReady) figures.settle = clock.elapsed() - figures.load;
        });
        clock.start();
        std::optional<PageShot> shot;
        QCoro::waitFor(runInto(run, shot));
        figures.picture = clock.elapsed() - figures.load - figures.settle;
        return std::move(*shot);
    }

    QTemporaryDir m_folder;
    std::shared_ptr<Browser> m_browser = Browser::create();
};

void printRow(const NamedFormat& format, int millionPixels, const Figures& figures)
{
    const auto megabytes = [](qint64 bytes) { return double(bytes) / 1e6; };
    std::printf("| %s | %d | %lld | %lld | %lld | %lld | %lld | %lld | %.0f | %.0f | %.1f |\n",
                qPrintable(format.name), millionPixels, figures.load, figures.settle, figures.picture,
                figures.encode, figures.encodeWork, figures.write, megabytes(figures.ownPeak),
                megabytes(figures.browserPeak), megabytes(figures.file));
    std::fflush(stdout);
}

void printTable()
{
    CaptureBench bench;
    std::puts("| Format | Mpx | Load ms | Settle ms | Raster and transfer ms | Encode ms | Encode CPU ms "
              "| Write ms | Our peak MB | Browser's peak MB | File MB |\n"
              "|---|---|---|---|---|---|---|---|---|---|---|");
    const std::array formats{NamedFormat{u"png"_s, ImageFormat::Png},
                             NamedFormat{u"jpeg"_s, ImageFormat::Jpeg},
                             NamedFormat{u"gif"_s, ImageFormat::Gif}, NamedFormat{u"bmp"_s, ImageFormat::Bmp},
                             NamedFormat{u"tiff"_s, ImageFormat::Tiff}};
    for (const NamedFormat& format : formats) {
        for (const int millionPixels : kMillionPixels)
            printRow(format, millionPixels, bench.medianOf(format, millionPixels));
    }
}

} // namespace

} // namespace vistrel

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    vistrel::printTable();
}
