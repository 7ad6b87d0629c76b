// Bitmaps of every format through the emulated chip, decoded before, beside QPainter drawing the
// same texels; and what decoding costs.
#include "BitmapSamples.h"
#include "CMedianTable.h"
#include "ScreenList.h"
#include "displaylist/CDisplayListWriter.h"
#include "executor/CExecutor.h"
#include "raster/CSurface.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdlib>
#include <memory>

namespace {

using namespace bench;
using namespace kivemu;

constexpr int FrameWidth = 480;
constexpr int FrameHeight = 272;
constexpr int Side = 64;
constexpr double Scale = 1.25;
constexpr int Rounds = 4; ///< so often each place is drawn on, so that clearing the frame is little
constexpr size_t MemoryBytes = 1 << 20;
constexpr size_t DisplayListBytes = 1 << 16;

/// One sample as both sides get it.
struct SSubject
{
    CRamG memory{MemoryBytes};
    CDisplayListWriter::SBitmapSource source{};
    QImage image;
};

QImage toImage(const SBitmapImage &bitmap)
{
    return QImage(reinterpret_cast<const uchar *>(bitmap.at(0, 0)), bitmap.width, bitmap.height,
                  bitmap.stride * 4,
                  bitmap.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied)
        .copy();
}

std::shared_ptr<const SBitmapImage> decoded(const SSubject &subject)
{
    const auto &source = subject.source;
    auto bitmap =
        decodeBitmap(subject.memory.data(), subject.memory.used(), source.format, source.address,
                     source.stride, source.palette, source.width, source.height);
    if (!bitmap)
        std::abort(); // nothing would be drawn
    return bitmap;
}

std::shared_ptr<const SSubject> subjectOf(const SBitmapSample &sample)
{
    const auto subject = std::make_shared<SSubject>();
    const auto add = [&](const std::vector<uint8_t> &bytes) {
        return subject->memory.append(bytes.data(), bytes.size()).value();
    };
    const auto format = static_cast<uint32_t>(sample.format);
    subject->source = {add(sample.pixels),
                       format,
                       bitmapStride(format, sample.width),
                       static_cast<uint16_t>(sample.width),
                       static_cast<uint16_t>(sample.height),
                       sample.palette.empty() ? 0 : add(sample.palette)};
    subject->image = toImage(*decoded(*subject));
    return subject;
}

/// The corners of a grid that fills the frame, several times.
std::vector<QPoint> places()
{
    std::vector<QPoint> result;
    for (int round = 0; round < Rounds; ++round)
        for (int y = 0; y + Side <= FrameHeight; y += Side + 4)
            for (int x = 0; x + Side <= FrameWidth; x += Side + 4)
                result.emplace_back(x, y);
    return result;
}

STurnedPicture turnedAt(QPoint place, size_t index)
{
    return {0,
            {place.x() + Side / 2.0, place.y() + Side / 2.0},
            Scale,
            15 + 11.0 * static_cast<double>(index % 30)};
}

enum class EDrawing { Copied, Turned };

std::vector<uint32_t> displayList(const SSubject &subject, EDrawing drawing)
{
    CDisplayListWriter writer(DisplayListBytes);
    writer.clear(0xFF101418);
    const auto corners = places();
    for (size_t i = 0; i < corners.size(); ++i) {
        SBitmapPlacement place;
        place.topLeft = {corners[i].x() * 16, corners[i].y() * 16};
        place.size = {Side * 16, Side * 16};
        if (drawing == EDrawing::Turned)
            place = turnedPlacement(Side, Side, turnedAt(corners[i], i));
        writer.bitmap(subject.source, place);
    }
    writer.finish();
    if (writer.overflowItem())
        std::abort(); // a part of the work would be left out
    return writer.words();
}

void runExecutor(benchmark::State &state, const SSubject &subject, EDrawing drawing)
{
    const auto words = displayList(subject, drawing);
    CSurface surface(FrameWidth, FrameHeight);
    CExecutor executor;
    for (auto _ : state) {
        const auto errors = executor.execute(words.data(), words.size(), subject.memory, surface);
        if (!errors.empty())
            state.SkipWithError(errors.front().message.c_str());
    }
}

void paint(QImage &frame, const QImage &image, EDrawing drawing)
{
    QPainter painter(&frame);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.fillRect(frame.rect(), QColor(0x10, 0x14, 0x18));
    const auto corners = places();
    for (size_t i = 0; i < corners.size(); ++i) {
        if (drawing == EDrawing::Copied) {
            painter.drawImage(corners[i], image);
            continue;
        }
        const STurnedPicture turned = turnedAt(corners[i], i);
        painter.save();
        painter.translate(turned.centre.x, turned.centre.y);
        painter.rotate(turned.angle);
        painter.scale(turned.scale, turned.scale);
        painter.drawImage(QPointF(-Side / 2.0, -Side / 2.0), image);
        painter.restore();
    }
}

void runPainter(benchmark::State &state, const SSubject &subject, EDrawing drawing)
{
    QImage frame(FrameWidth, FrameHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        paint(frame, subject.image, drawing);
}

void runDecoder(benchmark::State &state, const SSubject &subject)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(decoded(subject));
}

template<typename Function>
void add(const std::string &name, Function function)
{
    benchmark::RegisterBenchmark(name.c_str(), function)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.05)
        ->Repetitions(9)
        ->ReportAggregatesOnly();
}

void addDrawing(const char *table, const char *format, EDrawing drawing,
                const std::shared_ptr<const SSubject> &subject)
{
    const std::string row = std::string(table) + "/" + format;
    add(row + "/QPainter", [=](benchmark::State &state) { runPainter(state, *subject, drawing); });
    add(row + "/executor", [=](benchmark::State &state) { runExecutor(state, *subject, drawing); });
}

/// What both sides draw, to compare.
bool writePictures(const QString &folder)
{
    bool written = true;
    for (const SBitmapSample &sample : bitmapSamples(Side, Side)) {
        const auto subject = subjectOf(sample);
        for (const EDrawing drawing : {EDrawing::Copied, EDrawing::Turned}) {
            QImage both(FrameWidth, 2 * FrameHeight, QImage::Format_RGB32);
            QImage painted(FrameWidth, FrameHeight, QImage::Format_ARGB32_Premultiplied);
            paint(painted, subject->image, drawing);
            CSurface surface(FrameWidth, FrameHeight);
            const auto words = displayList(*subject, drawing);
            CExecutor().execute(words.data(), words.size(), subject->memory, surface);
            const QImage executed(reinterpret_cast<const uchar *>(surface.row(0)), FrameWidth,
                                  FrameHeight, surface.stride() * 4, QImage::Format_RGB32);
            QPainter painter(&both);
            painter.drawImage(0, 0, executed);
            painter.drawImage(0, FrameHeight, painted);
            painter.end();
            const char *end = drawing == EDrawing::Copied ? "copied" : "turned";
            written =
                both.save(folder + QStringLiteral("/%1-%2.png").arg(sample.name, end)) && written;
        }
    }
    return written;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--pictures") == 0)
        return writePictures(QString::fromLocal8Bit(argv[2])) ? 0 : 1;

    benchmark::Initialize(&argc, argv);
    for (const SBitmapSample &sample : bitmapSamples(Side, Side)) {
        const auto subject = subjectOf(sample);
        addDrawing("unscaled", sample.name, EDrawing::Copied, subject);
        addDrawing("turned bilinear", sample.name, EDrawing::Turned, subject);
    }
    for (const SBitmapSample &sample : bitmapSamples(FrameWidth, FrameHeight)) {
        const auto subject = subjectOf(sample);
        add(std::string("decode 480x272/") + sample.name + "/decoder",
            [=](benchmark::State &state) { runDecoder(state, *subject); });
    }
    CMedianTable reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
