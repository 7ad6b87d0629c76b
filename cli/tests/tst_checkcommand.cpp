#include "TestFiles.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

/// panel-export check, on a project without a fault and with one seeded.
class tst_CheckCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void oneFault_data();
    void oneFault();
    void projectsAreNotOverwritten();
    void ignored_data();
    void ignored();
    void sarif();
    void examplesAreClean_data();
    void examplesAreClean();

private:
    struct SResult
    {
        int exitCode;
        QByteArray out;
        QString errors;
    };
    SResult run(const QStringList &words) const;
    QJsonObject check(const QString &project) const
    {
        return QJsonDocument::fromJson(run({"check", project, "--json", "-"}).out).object();
    }
    void put(const QString &files) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

#define DEJAVU "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"

const QByteArray clean = R"(<?xml version="1.0" encoding="UTF-8"?>
<Kiv_Project_T name="P" project_name="p" platform="QX110" width="320" height="240">
 <Kiv_Screen_T name="Home" color="#101010">
  <Kiv_Text_T name="Title" id="1" x_coordinate="10" y_coordinate="10" text="Title" font="27" text_color="#ffffff"/>
  <Kiv_Button_T name="Start" id="2" x_coordinate="10" y_coordinate="60" width="120" height="50" text="Start" font="27"/>
  <Kiv_Slider_T name="Pump" id="3" x_coordinate="150" y_coordinate="60" width="100" height="46"/>
  <Kiv_Bitmap_T name="Logo" id="4" x_coordinate="150" y_coordinate="120" width="16" height="16" basename="logo" bfolder="p_ConvertedImages" format="RGB565" bwidth="16" bheight="16"/>
  <Kiv_Rectangle_T name="Box" id="5" x_coordinate="10" y_coordinate="130" width="60" height="60"/>
 </Kiv_Screen_T>
 <Kiv_Screen_T name="Menu" color="#101010">
  <Kiv_Line_T name="Rule" id="9" x_coordinate="10" y_coordinate="100" x2_coordinate="90" y2_coordinate="100"/>
  <Kiv_Rectangle_T name="Frame" id="6" x_coordinate="10" y_coordinate="10" width="60" height="60"/>
 </Kiv_Screen_T>
</Kiv_Project_T>
)";

using Edit = std::function<void(QByteArray &)>;

Edit replaced(const char *from, const char *to)
{
    return [=](QByteArray &xml) {
        if (xml.count(from) != 1)
            qFatal("%s is not there once", from);
        xml.replace(from, to);
    };
}

} // namespace

void tst_CheckCommand::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir("p_ConvertedImages"));
    TestFiles::write(path("p_ConvertedImages/logo_RGB565.raw"), QByteArray(512, '\x5a'));
    TestFiles::write(path("p.nyx"), clean);
}

tst_CheckCommand::SResult tst_CheckCommand::run(const QStringList &words) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(qEnvironmentVariable("KIV_BIN_DIR") + "/panel-export", words);
    if (!process.waitForFinished(60000))
        return {-1, {}, "did not end"};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), QString::fromUtf8(process.readAllStandardError())};
}

void tst_CheckCommand::oneFault_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("files");    ///< see put()
    QTest::addColumn<QString>("expected"); ///< severity, rule, item
    const auto row = [](const char *name, const Edit &edit, const char *expected,
                        const char *files = "") {
        QByteArray xml = clean;
        edit(xml);
        QTest::newRow(name) << xml << QString(files) << QString(expected);
    };
    const auto none = [](QByteArray &) {};
    row("clean", none, "");
    row("outside",
        replaced("name=\"Box\" id=\"5\" x_coordinate=\"10\"",
                 "name=\"Box\" id=\"5\" x_coordinate=\"330\""),
        "warning outside-screen Box");
    row("partly outside",
        replaced("name=\"Box\" id=\"5\" x_coordinate=\"10\"",
                 "name=\"Box\" id=\"5\" x_coordinate=\"300\""),
        "note outside-screen Box");
    row("turned out of it",
        replaced("name=\"Box\" id=\"5\" x_coordinate=\"10\"",
                 "angle=\"45\" name=\"Box\" id=\"5\" x_coordinate=\"0\""),
        "note outside-screen Box");
    row("without a size", replaced("x2_coordinate=\"90\"", "x2_coordinate=\"10\""),
        "warning no-size Rule");
    row(
        "covered",
        [](QByteArray &xml) {
            xml.replace("  <Kiv_Rectangle_T name=\"Box\"",
                        "  <Kiv_Rectangle_T name=\"Lid\" id=\"7\" x_coordinate=\"5\" "
                        "y_coordinate=\"125\" width=\"80\" height=\"80\"/>\n"
                        "  <Kiv_Rectangle_T name=\"Box\"");
        },
        "warning hidden Box");
    row(
        "covered by glass, which is no fault",
        [](QByteArray &xml) {
            xml.replace(
                "  <Kiv_Rectangle_T name=\"Box\"",
                "  <Kiv_Rectangle_T name=\"Lid\" id=\"7\" x_coordinate=\"5\" "
                "y_coordinate=\"125\" width=\"80\" height=\"80\" fill_color=\"#400000ff\"/>\n"
                "  <Kiv_Rectangle_T name=\"Box\"");
        },
        "");
    row("a small button", replaced("width=\"120\" height=\"50\"", "width=\"120\" height=\"41\""),
        "warning touch-size Start");
    row(
        "large enough on a coarse display",
        [](QByteArray &xml) {
            xml.replace("width=\"120\" height=\"50\"", "width=\"120\" height=\"41\"");
            xml.replace("name=\"P\"", "dots_per_inch=\"140\" name=\"P\"");
        },
        "");
    row("buttons over each other",
        replaced("x_coordinate=\"150\" y_coordinate=\"60\"",
                 "x_coordinate=\"128\" y_coordinate=\"60\""),
        "warning touch-overlap Pump");
    row("a text that is cut", replaced("text=\"Start\"", "text=\"Start the washing programme\""),
        "warning text-cut Start");
    row("a text that has no room at all",
        replaced("id=\"1\" x_coordinate=\"10\"", "height=\"6\" id=\"1\" x_coordinate=\"10\""),
        "warning text-cut Title");
    const auto own = [](const char *from, const char *to) {
        return Edit([=](QByteArray &xml) {
            replaced(from, to)(xml);
            replaced(" <Kiv_Screen_T name=\"Home\"",
                     " <fonts><font handle=\"0\" name=\"Own\" file=\"" DEJAVU
                     "\" size=\"20\"/></fonts>\n <Kiv_Screen_T name=\"Home\"")(xml);
        });
    };
    row("a text in an own font that is cut",
        own("text=\"Start\" font=\"27\"", "text=\"Start the washing programme\" font=\"0\""),
        "warning text-cut Start");
    row("a text in an own font that fits",
        own("text=\"Start\" font=\"27\"", "text=\"Start\xe2\x80\xa6\" font=\"0\""), "");
    row("a text in an own font that is too high",
        own("id=\"1\" x_coordinate=\"10\" y_coordinate=\"10\" text=\"Title\" font=\"27\"",
            "id=\"1\" x_coordinate=\"10\" y_coordinate=\"10\" text=\"Title\" font=\"0\" "
            "height=\"8\""),
        "warning text-cut Title");
    row("a character that the fonts in ROM lack",
        replaced("text=\"Title\"", "text=\"5 \xe2\x82\xac\""), "error missing-glyph Title");
    row("a character that an own font lacks",
        own("text=\"Title\" font=\"27\"", "text=\"\xe4\xb8\xad\" font=\"0\""),
        "error missing-glyph Title");
    row("an ellipsis of its own", replaced("text=\"Start\"", "text=\"Start\xe2\x80\xa6\""), "");
    row("a text like its background", replaced("text_color=\"#ffffff\"", "text_color=\"#505050\""),
        "warning contrast Title");
    row("a text that is its background",
        replaced("text_color=\"#ffffff\"", "text_color=\"#101010\""), "warning contrast Title");
    row(
        "large, so less is enough",
        [](QByteArray &xml) {
            xml.replace("font=\"27\" text_color=\"#ffffff\"",
                        "font=\"31\" height=\"60\" width=\"300\" text_color=\"#707070\"");
        },
        "");
    row("no image file", none, "error missing-image Logo", "-p_ConvertedImages/logo_RGB565.raw");
    row("an image that nothing shows", none, "note unused-image ",
        "p_ConvertedImages/old_RGB565.raw");
    // The copy that the converter leaves tells what was converted.
    const Edit withSource =
        replaced("basename=\"logo\"", "basename=\"logo\" suffix=\"png\" filename=\"logo.png\"");
    row("the file of an image, painted anew", withSource, "warning changed-image Logo",
        "logo.png:16:red p_ConvertedImages/logo.png:16:blue");
    row("the same picture, packed in another way", withSource, "",
        "logo.png:16:red:0 p_ConvertedImages/logo.png:16:red");
    row("the file of an image without a copy, of another size", withSource,
        "warning changed-image Logo", "logo.png:17:red");
    row("the file of an image without a copy", withSource, "", "logo.png:16:red");
    row("an image in a folder of its own that nothing shows", none, "note unused-image ",
        "p_ConvertedImages/old_DXT1/old_DXT1.raw");
    row("an image three times as large",
        replaced("y_coordinate=\"120\" width=\"16\" height=\"16\"",
                 "y_coordinate=\"120\" width=\"48\" height=\"48\""),
        "warning scaled-image Logo");
    row(
        "one image, two names",
        [](QByteArray &xml) {
            xml.replace("  <Kiv_Rectangle_T name=\"Box\"",
                        "  <Kiv_Bitmap_T name=\"Mark\" id=\"8\" x_coordinate=\"200\" "
                        "y_coordinate=\"120\" width=\"16\" height=\"16\" basename=\"mark\" "
                        "bfolder=\"p_ConvertedImages\" format=\"RGB565\" bwidth=\"16\" "
                        "bheight=\"16\"/>\n  <Kiv_Rectangle_T name=\"Box\"");
        },
        "note same-image ", "p_ConvertedImages/mark_RGB565.raw");
    row(
        "a text that is read only on half of its ground",
        [](QByteArray &xml) {
            xml.replace("text=\"Title\"", "text=\"A title of two halves\" width=\"200\"");
            xml.replace("  <Kiv_Bitmap_T",
                        "  <Kiv_Rectangle_T name=\"Half\" id=\"7\" x_coordinate=\"80\" "
                        "y_coordinate=\"0\" width=\"200\" height=\"50\" corner=\"0\" "
                        "fill_color=\"#f0f0f0\"/>\n  <Kiv_Bitmap_T");
        },
        "warning contrast Title");
    row("a text that is cut by the page's edge",
        replaced("id=\"1\" x_coordinate=\"10\"", "width=\"200\" id=\"1\" x_coordinate=\"290\""),
        "warning text-cut Title");
    row("a line along the page's edge",
        replaced("y_coordinate=\"100\" x2_coordinate=\"90\" y2_coordinate=\"100\"",
                 "y_coordinate=\"0\" x2_coordinate=\"90\" y2_coordinate=\"0\" thickness=\"3\""),
        "");
    row(
        "behind what is not seen itself",
        [](QByteArray &xml) {
            xml.replace("  <Kiv_Rectangle_T name=\"Box\" id=\"5\"",
                        "  <Kiv_Rectangle_T name=\"Lid\" id=\"7\" x_coordinate=\"5\" "
                        "y_coordinate=\"125\" width=\"80\" height=\"80\" "
                        "fill_color=\"#00000000\"/>\n"
                        "  <Kiv_Rectangle_T fill_color=\"#00000000\" name=\"Box\" id=\"5\"");
        },
        "");
    row(
        "a question before a page that is dimmed",
        [](QByteArray &xml) {
            xml.replace(
                "  <Kiv_Text_T name=\"Title\"",
                "  <Kiv_Button_T name=\"Yes\" id=\"7\" x_coordinate=\"190\" "
                "y_coordinate=\"70\" width=\"80\" height=\"50\" text=\"Yes\" font=\"27\"/>\n"
                "  <Kiv_Rectangle_T name=\"Dim\" id=\"8\" x_coordinate=\"0\" "
                "y_coordinate=\"0\" width=\"320\" height=\"240\" corner=\"0\" "
                "fill_color=\"#d0101010\"/>\n"
                "  <Kiv_Text_T name=\"Title\"");
        },
        "");
    row("one id twice", replaced("id=\"6\"", "id=\"5\""), "warning duplicate-id Frame");
    row("one name twice", replaced("name=\"Logo\"", "name=\"Box\""), "note duplicate-name Box");
    row(
        "one name in C",
        [](QByteArray &xml) {
            xml.replace("name=\"Logo\"", "name=\"a-b\"").replace("name=\"Box\"", "name=\"A b\"");
        },
        "note identifier A b");
    row("screens with one name", replaced("name=\"Menu\"", "name=\"Home\""),
        "warning duplicate-name ");
    row("a kind that nobody knows",
        replaced("Kiv_Rectangle_T name=\"Frame\"", "Kiv_Rocket_T name=\"Frame\""),
        "error render-error Frame");
    row(
        "a format of other chips",
        [](QByteArray &xml) { xml.replace("format=\"RGB565\"", "format=\"PALETTED\""); },
        "error chip-value Logo",
        "p_ConvertedImages/logo_PALETTED.raw -p_ConvertedImages/logo_RGB565.raw");
    row("a chip that nobody knows", replaced("platform=\"QX110\"", "platform=\"ZZ9\""),
        "error chip-value ");
    row("memory that gets short", replaced("name=\"P\"", "memory_share=\"0.3\" name=\"P\""),
        "warning memory ");
}

/// Names of files to be there: "-name" to be gone, "name.png:side:colour:quality" a picture.
void tst_CheckCommand::put(const QString &files) const
{
    for (const QString &each : files.split(' ', Qt::SkipEmptyParts)) {
        const QStringList words = each.split(':');
        const QString file = path(words[0].mid(each.startsWith('-') ? 1 : 0));
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QImage picture(words.value(1).toInt(), 16, QImage::Format_RGB32);
        picture.fill(QColor(words.value(2)));
        if (each.startsWith('-'))
            QVERIFY(QFile::remove(file));
        else if (picture.isNull())
            TestFiles::write(file, QByteArray(512, '\x5a'));
        else
            QVERIFY(picture.save(file, "PNG", words.value(3, "100").toInt()));
    }
}

void tst_CheckCommand::oneFault()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, files);
    QFETCH(QString, expected);
    TestFiles::write(path("p.nyx"), xml);
    put(files);
    QStringList told;
    const QJsonObject json = check("p.nyx");
    for (const QJsonValue &each : json["findings"].toArray())
        told.append(each["severity"].toString() + ' ' + each["rule"].toString() + ' ' +
                    each["name"].toString());
    QCOMPARE(told.join(", "), expected);
    const bool isError = expected.startsWith("error");
    qputenv("LC_ALL", "de_DE.UTF-8"); // changes no number
    const SResult lines = run({"check", "p.nyx"});
    QCOMPARE(lines.exitCode, isError ? 1 : 0);
    QVERIFY2(!QString(lines.out).contains(QRegularExpression("\\d,\\d+ (mm|:)")), lines.out);
    QCOMPARE(run({"check", "p.nyx", "--warnings-as-errors"}).exitCode,
             isError || expected.startsWith("warning") ? 1 : 0);
}

/// A report in the place of the project would be the end of it.
void tst_CheckCommand::projectsAreNotOverwritten()
{
    const QStringList lines[] = {{"check", "p.nyx", "--json", "p.nyx"},
                                 {"check", "p.nyx", "--json", "a", "--sarif", "./a"},
                                 {"budget", "p.nyx", "--json", "./p.nyx"},
                                 {"diff", "p.nyx", "p.nyx", "--json", "p.nyx"}};
    for (const QStringList &words : lines) {
        const SResult result = run(words);
        QVERIFY2(result.exitCode == 2 && result.errors.contains("is given as"),
                 qPrintable(words.join(' ')));
        QCOMPARE(TestFiles::read(path("p.nyx")), clean);
        QVERIFY(!QFile::exists(path("a")));
    }
}

void tst_CheckCommand::ignored_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("files");
    QTest::addColumn<int>("notes"); ///< that are left, of two
    const auto row = [](const char *name, const Edit &edit, const char *files, int notes) {
        QByteArray xml = clean;
        edit(xml);
        QTest::newRow(name) << xml << QString(files) << notes;
    };
    const char *const two = "p_ConvertedImages/a_L8.raw p_ConvertedImages/b_L8.raw";
    row("an item's",
        replaced("text_color=\"#ffffff\"",
                 "text_color=\"#505050\" ignored_checks=\"contrast: so it is\""),
        "", 0);
    row("one of the project's",
        replaced("name=\"P\"", "name=\"P\" "
                               "ignored_checks=\"unused-image [p_ConvertedImages/a_L8.raw]: "
                               "so it is\""),
        two, 1);
    row("all of a rule",
        replaced("name=\"P\"", "name=\"P\" ignored_checks=\"unused-image: so it is\""), two, 0);
    row("a page's",
        replaced("Kiv_Screen_T name=\"Menu\"",
                 "Kiv_Screen_T name=\"Home\" ignored_checks=\"duplicate-name: so it is\""),
        "", 0);
}

void tst_CheckCommand::ignored()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, files);
    QFETCH(int, notes);
    TestFiles::write(path("p.nyx"), xml);
    put(files);
    const QJsonObject json = check("p.nyx");
    QCOMPARE(json["warnings"].toInt(), 0);
    QCOMPARE(json["notes"].toInt(), notes);
    const int ignored = json["ignored"].toInt();
    QCOMPARE(ignored, files.isEmpty() ? 1 : 2 - notes);
    QCOMPARE(json["findings"].toArray()[0].toObject()["ignored_because"].toString(),
             QString("so it is"));
    QCOMPARE(run({"check", "p.nyx", "--warnings-as-errors"}).out.count('\n'), notes);
    QCOMPARE(run({"check", "p.nyx", "--ignored"}).out.count("] (ignored: so it is)\n"), ignored);
}

void tst_CheckCommand::sarif()
{
    QByteArray xml = clean;
    xml.replace("text_color=\"#ffffff\"",
                "text_color=\"#505050\" ignored_checks=\"contrast: a watermark\"");
    // Written by hand; a name as C, XML and addresses do not have it; like one on the page before.
    xml.replace("Kiv_Rectangle_T name=\"Frame\" id=\"6\" x_coordinate=\"10\"",
                "Kiv_Rectangle_T\n name=\"Ä &lt;&amp;&quot; %\" x_coordinate=\"330\"");
    xml.replace("name=\"Box\" id=\"5\"", "name=\"Ä &lt;&amp;&quot; %\"");
    const QString name = "Ä <&\" %";
    QVERIFY(QDir(m_folder->path()).mkdir("ä b%"));
    QVERIFY(QFile::rename(path("p_ConvertedImages"), path("ä b%/p_ConvertedImages")));
    TestFiles::write(path("ä b%/p.nyx"), xml);
    QCOMPARE(run({"check", path("ä b%/p.nyx"), "--sarif", "out/p.sarif"}).exitCode, 0);
    const QJsonObject log = QJsonDocument::fromJson(TestFiles::read(path("out/p.sarif"))).object();
    QCOMPARE(log["version"].toString(), QString("2.1.0"));
    const QJsonObject part = log["runs"].toArray()[0].toObject();
    const QJsonArray rules = part["tool"].toObject()["driver"].toObject()["rules"].toArray();
    const QJsonArray results = part["results"].toArray();
    QCOMPARE(results.size(), 2);
    for (const QJsonValue &value : results) {
        const QJsonObject result = value.toObject();
        QCOMPARE(rules[result["ruleIndex"].toInt()].toObject()["id"], result["ruleId"]);
        QVERIFY(QStringList({"error", "warning", "note"}).contains(result["level"].toString()));
        QVERIFY(!result["message"].toObject()["text"].toString().isEmpty());
        const QJsonObject place = result["locations"].toArray()[0].toObject();
        const QJsonObject file = place["physicalLocation"].toObject();
        QCOMPARE(file["artifactLocation"].toObject()["uri"].toString(),
                 QString("%C3%A4%20b%25/p.nyx"));
        const bool isIgnored = result.contains("suppressions");
        QCOMPARE(file["region"].toObject()["startLine"].toInt(), isIgnored ? 4 : 12);
        QCOMPARE(place["logicalLocations"].toArray()[0].toObject()["fullyQualifiedName"].toString(),
                 isIgnored ? "Home/Kiv_Text_T 1 \"Title\""
                           : "Menu/Kiv_Rectangle_T 0 \"" + name + '"');
    }
}

void tst_CheckCommand::examplesAreClean_data()
{
    QTest::addColumn<QString>("project");
    for (const char *name : {"thermostat", "coffee-machine", "ev-charger"})
        QTest::newRow(name)
            << QString("%1/examples/%2/%2.nyx").arg(qEnvironmentVariable("KIV_SOURCE_DIR"), name);
}

void tst_CheckCommand::examplesAreClean()
{
    QFETCH(QString, project);
    const SResult result = run({"check", project, "--warnings-as-errors"});
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_CheckCommand)
#include "tst_checkcommand.moc"
