#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

// A conversion by a tool that only writes its output, beside that tool alone: the difference is the
// converter's own share (folder, copy, box, wait).

namespace {

/// A program folder with one stub, an open project and an image.
struct SPlace
{
    SPlace()
    {
        QDir::setCurrent(folder.path());
        const QString path = folder.filePath("Image conversion tool for KIV/bmpconv");
        QDir().mkpath(path);
        tool = (path + "/bmpconv.exe").toUtf8();
        QFile file(QString::fromUtf8(tool));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the stub");
        file.write("#!/bin/sh\necho x > photo_L8.raw\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        project.setProjectProperty(PropertyKey::ProjectName, "demo");
        project.setWorkingDirectory(folder.path());
        CProjectModel::setCurrent(&project);
        QImage image(320, 240, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(photo());
    }
    QString photo() const { return folder.filePath("photo.png"); }

    QTemporaryDir folder;
    CProjectModel project;
    QByteArray tool;
};

void toolAlone(benchmark::State &state)
{
    const SPlace place;
    char *arguments[] = {const_cast<char *>(place.tool.constData()), nullptr};
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        if (posix_spawn(&child, arguments[0], nullptr, nullptr, arguments, environ) != 0 ||
            waitpid(child, &status, 0) != child || status != 0)
            state.SkipWithError("the stub failed");
    }
}

void conversion(benchmark::State &state)
{
    const SPlace place;
    CImageFileConverter converter;
    for (auto _ : state)
        if (!converter.convert(place.photo(), QStringLiteral("L8")))
            state.SkipWithError("the conversion failed");
}

BENCHMARK(toolAlone)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(conversion)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
