#include "CWidgetLibraryManager.h"
#include "DocumentChecks.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

/// The seeds of fuzz_documents, as they are and with random pieces changed, cut and doubled.
class tst_DocumentFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
};

void tst_DocumentFuzz::documents_data()
{
    const QString source = qEnvironmentVariable("KIV_SOURCE_DIR");
    QVERIFY(CWidgetLibraryManager::instance().initialise(
        qEnvironmentVariable("KIV_BIN_DIR") + "/widget-library.xml", {0x110}));
    QTest::addColumn<QByteArray>("seed");
    const QDir corpus(source + "/modules/UserInterface/source/Views/fuzz/corpus");
    const QStringList names = corpus.entryList(QDir::Files);
    QVERIFY(names.size() >= 5);
    for (const QString &name : names) {
        QFile file(corpus.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTest::newRow(qPrintable(name)) << file.readAll();
    }
}

void tst_DocumentFuzz::documents()
{
    QFETCH(QByteArray, seed);
    QCOMPARE(checkDocument(seed), QByteArray());
    for (quint32 round = 0; round < 150; ++round) {
        QRandomGenerator random(round);
        QByteArray input = seed;
        for (int changes = random.bounded(1, 5); changes > 0; --changes) {
            const int at = random.bounded(1, input.size());
            const QByteArray piece = input.mid(at, random.bounded(1, 40));
            switch (random.bounded(3)) {
            case 0:
                input[at] = char(random.bounded(256));
                break;
            case 1:
                input.insert(random.bounded(1, input.size()), piece);
                break;
            default:
                if (at + piece.size() < input.size())
                    input.remove(at, piece.size());
            }
        }
        const QByteArray wrong = checkDocument(input);
        QVERIFY2(wrong.isEmpty(), "round " + QByteArray::number(round) + ": " + wrong);
    }
}

QTEST_GUILESS_MAIN(tst_DocumentFuzz)
#include "tst_documentfuzz.moc"
