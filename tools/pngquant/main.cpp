#include "CFileWriter.h"
#include "ImageFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTextCodec>
#include <cstdio>
#include <unistd.h>

using namespace kivtools;

// Stands where the editor looks for the quantiser and hands on to the installed pngquant. For the
// call that the editor makes ("-f FILE") it opens the image itself: so JPEG and BMP work too, the
// limits of the other tools hold, and colours are read as the other tools read them. Any other
// call goes to pngquant as it is.

static QString installedPngquant()
{
    const QString found = QStandardPaths::findExecutable(QStringLiteral("pngquant"));
    return found.isEmpty() ? QStringLiteral(KIV_PNGQUANT) : found;
}

static int fail(const QString &text)
{
    std::fprintf(stderr, "pngquant: %s\n", text.toUtf8().constData());
    return 1;
}

static int handOn(char *argv[])
{
    const QByteArray program = installedPngquant().toUtf8();
    execv(program.constData(), argv);
    return fail(QStringLiteral("%1 cannot be started").arg(installedPngquant()));
}

/// The image with at most 256 colours, as a PNG file's bytes; empty on failure.
static QByteArray quantised(const QImage &image, QString *error)
{
    QByteArray source;
    QBuffer buffer(&source);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png", 100); // quickly, not small: it only goes through a pipe

    QProcess process;
    process.start(installedPngquant(), {QStringLiteral("-")});
    process.write(source);
    process.closeWriteChannel();
    if (!process.waitForFinished(-1))
        *error = QStringLiteral("%1 cannot be started").arg(installedPngquant());
    else if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        *error = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return error->isEmpty() ? process.readAllStandardOutput() : QByteArray();
}

static int quantiseFile(const QString &path)
{
    QString error;
    const QImage image = loadArgbImage(path, &error);
    if (image.isNull())
        return fail(error);
    const QByteArray bytes = quantised(image, &error);
    if (bytes.isEmpty())
        return fail(error);
    const QFileInfo info(path);
    error = CFileWriter::write(
        QStringLiteral("%1/%2-fs8.png").arg(info.path(), info.completeBaseName()), bytes);
    return error.isEmpty() ? 0 : fail(error);
}

int main(int argc, char *argv[])
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const bool isEditorsCall = words.size() == 3 && words[1] == QLatin1String("-f");
    return isEditorsCall ? quantiseFile(words[2]) : handOn(argv);
}
