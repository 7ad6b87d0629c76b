#include "CScreenshotWriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_ScreenshotWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersInsteadOfOverwriting()
    {
        const QTemporaryDir folder;
        CScreenshotWriter writer(folder.path());
        const std::pair<uint32_t, QString> expected[] = {{0xFF112233, "Page 1.png"},
                                                         {0xFF445566, "Page 1 (1).png"},
                                                         {0xFF778899, "Page 1 (2).png"}};
        for (const auto &[colour, name] : expected)
            QCOMPARE(writer.write("Page 1", picture(colour)), folder.path() + "//" + name);
        for (const auto &[colour, name] : expected)
            QCOMPARE(QImage(folder.filePath(name)).pixel(4, 3), colour);
    }

    void theLastNumberIsWrittenOver()
    {
        const QTemporaryDir folder;
        QFile(folder.filePath("P.png")).open(QIODevice::WriteOnly);
        for (int n = 1; n <= 10000; ++n)
            QFile(folder.filePath(QString("P (%1).png").arg(n))).open(QIODevice::WriteOnly);
        CScreenshotWriter writer(folder.path());
        const QString last = writer.write("P", picture(0xFF112233));
        QCOMPARE(last, folder.path() + QStringLiteral("//P (10000).png"));
        QCOMPARE(QImage(last).pixel(0, 0), 0xFF112233u);
        QCOMPARE(QFileInfo(folder.filePath("P (9999).png")).size(), 0);
    }

    void tellsWhatItSkipped()
    {
        const QTemporaryDir folder;
        const QFileInfo empty(CScreenshotWriter(folder.path()).write("P", QImage()));
        QVERIFY(empty.isFile() && empty.size() == 0); // an empty picture makes an empty file
        CScreenshotWriter writer(folder.filePath("missing"));
        QCOMPARE(writer.write("P", picture(0xFF112233)), QString());
        QCOMPARE(writer.skipped().size(), 1);
        QVERIFY(writer.skipped()[0].contains("P.png"));
    }

    void samePixelsGiveSameBytes()
    {
        QImage other = picture(0xFF112233).convertToFormat(QImage::Format_ARGB32);
        other.setDotsPerMeterX(1);
        QCOMPARE(CScreenshotWriter::toPng(other), CScreenshotWriter::toPng(picture(0xFF112233)));
        QVERIFY(CScreenshotWriter::toPng(other) != CScreenshotWriter::toPng(picture(0xFF112234)));
    }

private:
    static QImage picture(uint32_t colour)
    {
        QImage image(5, 4, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
};

QTEST_GUILESS_MAIN(tst_ScreenshotWriter)
#include "tst_screenshotwriter.moc"
