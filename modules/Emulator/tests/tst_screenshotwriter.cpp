#include "CScreenshotWriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_ScreenshotWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersInsteadOfOverwriting();
    void theLastNumberIsWrittenOver();
    void anEmptyPictureMakesAnEmptyFile();
    void staysInItsFolder_data();
    void staysInItsFolder();
    void tellsWhatItSkipped();
    void samePixelsGiveSameBytes();

private:
    static QImage picture(uint32_t colour)
    {
        QImage image(5, 4, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
};

void tst_ScreenshotWriter::numbersInsteadOfOverwriting()
{
    const QTemporaryDir folder;
    CScreenshotWriter writer(folder.path());
    const QString start = folder.path() + QStringLiteral("//");
    QCOMPARE(writer.write(QStringLiteral("Page 1"), picture(0xFF112233)),
             start + QStringLiteral("Page 1.png"));
    QCOMPARE(writer.write(QStringLiteral("Page 1"), picture(0xFF445566)),
             start + QStringLiteral("Page 1 (1).png"));
    QCOMPARE(writer.write(QStringLiteral("Page 1"), picture(0xFF778899)),
             start + QStringLiteral("Page 1 (2).png"));
    QCOMPARE(QImage(start + QStringLiteral("Page 1.png")).pixel(4, 3), 0xFF112233u);
    QCOMPARE(QImage(start + QStringLiteral("Page 1 (2).png")).pixel(4, 3), 0xFF778899u);
}

void tst_ScreenshotWriter::theLastNumberIsWrittenOver()
{
    const QTemporaryDir folder;
    QFile(folder.filePath(QStringLiteral("P.png"))).open(QIODevice::WriteOnly);
    for (int n = 1; n <= 10000; ++n)
        QFile(folder.filePath(QStringLiteral("P (%1).png").arg(n))).open(QIODevice::WriteOnly);
    CScreenshotWriter writer(folder.path());
    const QString last = writer.write(QStringLiteral("P"), picture(0xFF112233));
    QCOMPARE(last, folder.path() + QStringLiteral("//P (10000).png"));
    QCOMPARE(QImage(last).pixel(0, 0), 0xFF112233u);
    QCOMPARE(QFileInfo(folder.filePath(QStringLiteral("P (9999).png"))).size(), 0);
}

void tst_ScreenshotWriter::anEmptyPictureMakesAnEmptyFile()
{
    const QTemporaryDir folder;
    const QString path = CScreenshotWriter(folder.path()).write(QStringLiteral("P"), QImage());
    QVERIFY(QFileInfo(path).isFile());
    QCOMPARE(QFileInfo(path).size(), 0);
}

void tst_ScreenshotWriter::staysInItsFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("one up") << QStringLiteral("../evil");
    QTest::newRow("to the root") << QStringLiteral("../../../../../../../../tmp/kiv_evil");
    QTest::newRow("absolute") << QStringLiteral("/tmp/kiv_evil");
    QTest::newRow("backslashes") << QStringLiteral("..\\evil");
    QTest::newRow("below") << QStringLiteral("a/b");
    QTest::newRow("only dots") << QStringLiteral("..");
    QTest::newRow("empty") << QString();
    QTest::newRow("NUL") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    QTest::newRow("300 characters") << QString(300, QLatin1Char('x'));
    QTest::newRow("300 characters of four bytes") << QStringLiteral("\U0001F600").repeated(300);
}

void tst_ScreenshotWriter::staysInItsFolder()
{
    QFETCH(QString, name);
    const QTemporaryDir outer;
    QVERIFY(QDir(outer.path()).mkdir(QStringLiteral("in")));
    CScreenshotWriter writer(outer.filePath(QStringLiteral("in")));
    QVERIFY(!writer.write(name, picture(0xFF112233)).isEmpty());
    QVERIFY(!writer.write(name, picture(0xFF112233)).isEmpty());
    QCOMPARE(QDir(outer.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("in")));
    const auto files = QDir(outer.filePath(QStringLiteral("in")))
                           .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QCOMPARE(files.size(), 2);
    for (const QFileInfo &file : files)
        QVERIFY(file.isFile() && file.size() > 0 && file.suffix() == QLatin1String("png"));
    QVERIFY(!QFile::exists(QStringLiteral("/tmp/kiv_evil.png")));
}

void tst_ScreenshotWriter::tellsWhatItSkipped()
{
    const QTemporaryDir folder;
    CScreenshotWriter writer(folder.filePath(QStringLiteral("missing")));
    QCOMPARE(writer.write(QStringLiteral("P"), picture(0xFF112233)), QString());
    QCOMPARE(writer.skipped().size(), 1);
    QVERIFY(writer.skipped()[0].contains(QLatin1String("P.png")));
}

void tst_ScreenshotWriter::samePixelsGiveSameBytes()
{
    QImage other = picture(0xFF112233).convertToFormat(QImage::Format_ARGB32);
    other.setDotsPerMeterX(1);
    QCOMPARE(CScreenshotWriter::toPng(other), CScreenshotWriter::toPng(picture(0xFF112233)));
    QVERIFY(CScreenshotWriter::toPng(other) != CScreenshotWriter::toPng(picture(0xFF112234)));
}

QTEST_GUILESS_MAIN(tst_ScreenshotWriter)
#include "tst_screenshotwriter.moc"
