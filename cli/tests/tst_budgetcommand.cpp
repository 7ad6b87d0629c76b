#include "TestFiles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// panel-export budget: the figures add up to the emulator's, and other formats are tried for real.
class tst_BudgetCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sumsAreTheEmulators_data();
    void sumsAreTheEmulators();
    void whatIf();
    void aFormatThatFitsIsProposed();

private:
    QJsonObject json(const QStringList &words, int exitCode) const;

    const QString m_examples = qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples/";
    QTemporaryDir m_folder;
};

QJsonObject tst_BudgetCommand::json(const QStringList &words, int exitCode) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.start(qEnvironmentVariable("KIV_BIN_DIR") + "/panel-export", words);
    const bool hasEnded = process.waitForFinished(120000);
    if (!hasEnded || process.exitCode() != exitCode)
        qFatal("exit code %d: %s", process.exitCode(), process.readAllStandardError().constData());
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

void tst_BudgetCommand::sumsAreTheEmulators_data()
{
    QTest::addColumn<QString>("project");
    for (const QString name : {"thermostat", "coffee-machine", "ev-charger"})
        QTest::newRow(qPrintable(name)) << m_examples + name + '/' + name + ".nyx";
}

void tst_BudgetCommand::sumsAreTheEmulators()
{
    QFETCH(QString, project);
    const QJsonArray screens = json({"budget", project, "--json", "-"}, 0)["screens"].toArray();
    const QJsonArray reports = json({project, "--report", "-"}, 0)["screens"].toArray();
    QVERIFY(!screens.isEmpty());
    QCOMPARE(screens.size(), reports.size());
    const auto sum = [](const QJsonArray &parts, const char *key) {
        int total = 0;
        for (const QJsonValue &part : parts)
            total += part.toObject()[key].toInt();
        return total;
    };
    for (int i = 0; i < screens.size(); ++i) {
        const QJsonObject screen = screens[i].toObject();
        const QJsonObject report = reports[i].toObject();
        QCOMPARE(sum(screen["assets"].toArray(), "bytes") + screen["ram_g_rest"].toInt(),
                 report["ram_g_bytes"].toInt());
        QCOMPARE(screen["ram_g_rest"].toInt(), 0); // these examples have no gaps
        QCOMPARE(sum(screen["items"].toArray(), "ram_dl_bytes") + screen["ram_dl_rest"].toInt(),
                 report["ram_dl_bytes"].toInt());
        QVERIFY(screen["ram_dl_rest"].toInt() <= 16); // CLEAR and END
    }
}

void tst_BudgetCommand::whatIf()
{
    const QJsonArray images = json({"budget", m_examples + "coffee-machine/coffee-machine.nyx",
                                    "--json", "-", "--what-if"},
                                   0)["what_if"]
                                  .toArray();
    QCOMPARE(images.size(), 3);
    for (const QJsonValue &image : images) {
        QHash<QString, QJsonObject> trials;
        for (const QJsonValue &trial : image["trials"].toArray())
            trials.insert(trial["format"].toString(), trial.toObject());
        QCOMPARE(trials.size(), 10); // that this chip has
        QCOMPARE(trials["ARGB4"]["bytes"].toInt(), 128 * 104 * 2);
        QCOMPARE(trials["L1"]["bytes"].toInt(), 128 * 104 / 8);
        QCOMPARE(trials["PALETTED"]["bytes"].toInt(), 128 * 104 + 1024);
        QVERIFY(trials["ARGB4"]["psnr"].toDouble() > trials["ARGB2"]["psnr"].toDouble());
        // The pictures have transparent parts, which no depth of colour makes up for.
        QVERIFY(trials["RGB565"]["psnr"].toDouble() < 10);
        QVERIFY(trials["PALETTED"]["ssim"].toDouble() > 0.99);
    }
}

/// 400 x 400 texels: 320,000 bytes as they are, and the chip has 262,144.
void tst_BudgetCommand::aFormatThatFitsIsProposed()
{
    QImage picture(400, 400, QImage::Format_RGB32);
    for (int y = 0; y < 400; ++y)
        for (int x = 0; x < 400; ++x)
            picture.setPixel(x, y, qRgb(x * 255 / 400, y * 255 / 400, 90));
    const QString folder = m_folder.filePath("p_ConvertedImages/");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(picture.save(folder + "sky.png"));
    TestFiles::write(folder + "sky_RGB565.raw", QByteArray(320000, '\x20'));
    TestFiles::write(
        m_folder.filePath("p.nyx"),
        R"(<Kiv_Project_T project_name="p" platform="QX100" width="480" height="272"><Kiv_Screen_T name="Home">
<Kiv_Bitmap_T name="Sky" id="1" width="400" height="400" basename="sky" bfolder="p_ConvertedImages" format="RGB565" bwidth="400" bheight="400" suffix="png"/>
</Kiv_Screen_T></Kiv_Project_T>)");
    const QJsonObject budget = json({"budget", "p.nyx", "--json", "-", "--what-if"}, 1);
    QCOMPARE(budget["screens"].toArray().at(0)["ram_g_bytes"].toInt(), 320000);
    const QJsonArray images = budget["what_if"].toArray();
    QCOMPARE(images.size(), 1);
    const QString proposed = images.at(0)["proposed"].toString();
    QVERIFY2(proposed == "PALETTED" || proposed == "DXT1" || proposed == "RGB332",
             qPrintable(proposed));
}

QTEST_GUILESS_MAIN(tst_BudgetCommand)
#include "tst_budgetcommand.moc"
