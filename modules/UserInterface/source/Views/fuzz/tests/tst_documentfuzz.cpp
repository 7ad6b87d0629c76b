#include "CWidgetLibraryManager.h"
#include "DocumentChecks.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

namespace {
/// A few changes each: by structure, so that most documents stay well-formed, and by byte.
QByteArray mutated(const QByteArray &source, QRandomGenerator &random)
{
    static const QByteArray values[] = {
        "",         "-1",         "0",          "99999999999", "nan",     "inf",
        "-1e308",   "1e999",      "true",       "&#xFFFD;",    "#zz",     "QX1zz",
        "QX100..",  "..",         "|@|",        "12:61:00",    "a,b;;1,", "\xF0\x9F\x98\x80",
        "&amp;#0;", "4294967295", "-2147483648"};
    static const QByteArrayList names =
        QByteArray("name id radius point_size x2_coordinate y_coordinate width height angle "
                   "resizeable locked heightfromfont platform working_directory bfolder pointlist "
                   "font type min")
            .split(' ');
    static const QByteArray tags[] = {"Widget_Group_T", "Kiv_Screen_T", "Kiv_Circle_T",
                                      "Kiv_Project_T", "widget"};
    const auto pick = [&](const auto &list) { return list[random.bounded(int(std::size(list)))]; };
    QByteArray xml = source;
    for (int n = random.bounded(1, 6); n > 0; --n) {
        const int at = random.bounded(xml.size());
        const int value = xml.indexOf("=\"", at);
        const int valueEnd = value < 0 ? -1 : xml.indexOf('"', value + 2);
        const int open = xml.indexOf('<', at);
        const int space = xml.indexOf(' ', open < 0 ? at : open);
        switch (random.bounded(6)) {
        case 0: // another value
            if (valueEnd > 0)
                xml.replace(value + 2, valueEnd - value - 2, pick(values));
            break;
        case 1: // another attribute
            if (space > 0)
                xml.insert(space, ' ' + pick(names) + "=\"" + pick(values) + '"');
            break;
        case 2: // another tag
            if (open >= 0 && space > open)
                xml.replace(open + 1, space - open - 1, pick(tags));
            break;
        case 3: // an element inside
            if (open > 0)
                xml.insert(open,
                           '<' + pick(tags) + ' ' + pick(names) + "='" + pick(values) + "'/>");
            break;
        case 4: // a byte
            xml[at] = char(random.bounded(256));
            break;
        default: // a piece cut out or doubled
            if (random.bounded(2))
                xml.remove(at, random.bounded(1, 40));
            else
                xml.insert(at, xml.mid(random.bounded(xml.size()), random.bounded(1, 200)));
        }
    }
    return xml;
}
} // namespace

/// The seeds of fuzz_documents and a widget library, as they are and changed at random.
class tst_DocumentFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documents_data()
    {
        const QString source = qEnvironmentVariable("KIV_SOURCE_DIR");
        QVERIFY(CWidgetLibraryManager::instance().initialise(
            qEnvironmentVariable("KIV_BIN_DIR") + "/widget-library.xml", {0x110}));
        QTest::addColumn<QByteArray>("seed");
        const QDir corpus(source + "/modules/UserInterface/source/Views/fuzz/corpus");
        QFile library(source + "/modules/Model/tests/data/widget-library.xml");
        QVERIFY(library.open(QIODevice::ReadOnly));
        QTest::newRow("library") << 'L' + library.readAll();
        const QStringList names = corpus.entryList(QDir::Files);
        QVERIFY(names.size() >= 5);
        for (const QString &name : names) {
            QFile file(corpus.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QTest::newRow(qPrintable(name)) << file.readAll();
        }
    }

    void documents()
    {
        QFETCH(QByteArray, seed);
        QCOMPARE(checkDocument(seed), QByteArray());
        // What is read only takes less time than what is pasted too.
        const quint32 rounds = seed.at(0) == 'D' ? 4000 : seed.at(0) == 'L' ? 1000 : 150;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        for (quint32 round = 0; round < rounds; ++round) {
            QRandomGenerator random(round);
            const QByteArray input = seed.left(1) + mutated(seed.mid(1), random);
            const QByteArray wrong = checkDocument(input);
            QVERIFY2(wrong.isEmpty(), "round " + QByteArray::number(round) + ": " + wrong);
        }
        qInstallMessageHandler(nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_DocumentFuzz)
#include "tst_documentfuzz.moc"
