#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "CToolStubs.h"
#include "PropertyKey.h"

#include <QImage>
#include <QProcess>
#include <QtTest>
#include <cmath>

// From an image file through the real tools, the widget library, the render script and the emulator
// to the exported frame.

class tst_ImageToFrame : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyFormat_data();
    void everyFormat();
};

void tst_ImageToFrame::everyFormat_data()
{
    QTest::addColumn<QString>("platform");
    QTest::addColumn<int>("gap");          // widest between two values of a colour
    QTest::addColumn<int>("bytes");        // of 40 x 30 pixels
    QTest::addColumn<int>("paletteBytes"); // 256 entries
    const auto row = [](const char *format, const char *platform, int gap, int bytes, int palette) {
        QTest::newRow(format) << platform << gap << bytes << palette;
    };
    row("ARGB1555", "QX100", 9, 2400, 0);
    row("L1", "QX100", 255, 150, 0);
    row("L2", "QX113", 85, 300, 0);
    row("L4", "QX100", 17, 600, 0);
    row("L8", "QX100", 1, 1200, 0);
    row("RGB332", "QX113", 85, 1200, 0);
    row("ARGB2", "QX113", 85, 1200, 0);
    row("ARGB4", "QX113", 17, 2400, 0);
    row("RGB565", "QX113", 9, 2400, 0);
    // 256 colours for 1,200 pixels; never worse than a fixed palette of as many.
    row("PALETTED", "QX100", 37, 1200, 1024);
    row("PALETTED8", "QX113", 37, 1200, 1024);
    row("PALETTED565", "QX113", 37 + 9, 1200, 512);
    row("PALETTED4444", "QX113", 37 + 17, 1200, 512);
    row("DXT1", "QX113", 37, 640, 0);
}

void tst_ImageToFrame::everyFormat()
{
    QFETCH(QString, platform);
    QFETCH(int, gap);
    const QString format = QTest::currentDataTag();
    const CToolStubs place;
    const QString programs = qEnvironmentVariable("KIV_BIN_DIR");
    QDir::setCurrent(programs);
    CProjectModel project;
    CProjectModel::setCurrent(&project);
    project.setProjectProperty(PropertyKey::ProjectName, "demo");
    project.setWorkingDirectory(place.projectFolder());

    QImage photo(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            photo.setPixel(x, y, qRgb(x * 6, y * 8, 200 - x * 4));
    const QString suffix = format == "RGB565" ? "jpg" : "png";
    const QString file = place.path("photo." + suffix);
    QVERIFY(photo.save(file, nullptr, 95));
    const auto image = CImageFileConverter().convertedImage(file, format);
    QVERIFY(image);
    const QString folder = format == "DXT1"                ? "/photo_DXT1"
                           : format.startsWith("PALETTED") ? "/photo_PALETTED"
                                                           : "";
    QFETCH(int, bytes);
    QFETCH(int, paletteBytes);
    const QString base =
        place.projectFolder() + "/demo_ConvertedImages" + folder + "/photo_" + format;
    QCOMPARE(image->path, base + ".raw");
    QCOMPARE(image->bfolder, "demo_ConvertedImages" + folder);
    QCOMPARE(image->basename + '.' + image->suffix, "photo." + suffix);
    QCOMPARE(image->format, format);
    QCOMPARE(QSize(image->bwidth, image->bheight), photo.size());
    QCOMPARE(QFileInfo(image->path).size(), bytes);
    QCOMPARE(QFileInfo::exists(base + ".lut"), paletteBytes > 0);
    QCOMPARE(QFileInfo(base + ".lut").size(), paletteBytes);

    const QString xml =
        QString("<Kiv_Project_T project_name=\"demo\" platform=\"%1\" width=\"320\" height=\"240\">"
                "<Kiv_Screen_T name=\"Page\" color=\"#000000\">"
                "<Kiv_Bitmap_T name=\"Photo\" id=\"1\" x_coordinate=\"20\" y_coordinate=\"10\" "
                "width=\"40\" height=\"30\" filter=\"nearest\" basename=\"%2\" suffix=\"%3\" "
                "bfolder=\"%4\" format=\"%5\" bwidth=\"%6\" bheight=\"%7\"/>"
                "</Kiv_Screen_T></Kiv_Project_T>")
            .arg(platform, image->basename, image->suffix, image->bfolder, image->format)
            .arg(image->bwidth)
            .arg(image->bheight);
    TestFiles::write(place.projectFolder() + "/demo.nyx", xml.toUtf8());
    QProcess exporter;
    exporter.start(programs + "/panel-export",
                   {place.projectFolder() + "/demo.nyx", "--png", place.path("out"), "--strict"});
    QVERIFY(exporter.waitForFinished(60000));
    QVERIFY2(exporter.exitCode() == 0, exporter.readAllStandardError());
    const QImage frame(place.path("out/Page.png"));
    QCOMPARE(frame.size(), QSize(320, 240));

    double sum = 0;
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x) {
            const QRgb wanted = photo.pixel(x, y);
            const QRgb shown = frame.pixel(x + 20, y + 10);
            const double luma =
                0.299 * qRed(wanted) + 0.587 * qGreen(wanted) + 0.114 * qBlue(wanted);
            if (format.startsWith('L'))
                sum += 3 * std::abs(luma - qGreen(shown));
            else
                sum += std::abs(qRed(wanted) - qRed(shown)) +
                       std::abs(qGreen(wanted) - qGreen(shown)) +
                       std::abs(qBlue(wanted) - qBlue(shown));
        }
    const double mean = sum / (3 * photo.width() * photo.height());
    QVERIFY2(mean <= gap / 2.0 + 0.5, qPrintable(QString::number(mean)));
    QCOMPARE(frame.pixel(19, 20), qRgb(0, 0, 0));
    QCOMPARE(frame.pixel(60, 20), qRgb(0, 0, 0));
    CProjectModel::setCurrent(nullptr);
}

QTEST_MAIN(tst_ImageToFrame)
#include "tst_imagetoframe.moc"
