#include "CProjectModel.h"
#include "CWidgetLibraryManager.h"
#include "FrameRecorder.h"
#include "PlatformFilter.h"

#include <QFile>
#include <QTest>

/// The example designs: whole, in the project format, drawn without a complaint on their chip.
class tst_Examples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { Emu_Stop(); }
    void example_data();
    void example();
};

void tst_Examples::initTestCase()
{
    QVERIFY(CWidgetLibraryManager::instance().initialise(
        FrameRecorder::programFile(QStringLiteral("widget-library.xml")),
        {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}));
}

void tst_Examples::example_data()
{
    QTest::addColumn<QString>("platform");
    QTest::newRow("thermostat") << "QX110";
    QTest::newRow("ev-charger") << "QX112";
    QTest::newRow("coffee-machine") << "QX100";
}

void tst_Examples::example()
{
    QFETCH(QString, platform);
    const QString path =
        FrameRecorder::programFile(QString("examples/%1/%1.nyx").arg(QTest::currentDataTag()));

    CProjectModel project;
    QString error;
    QVERIFY2(project.loadFromFile(path, &error), qPrintable(error));
    QCOMPARE(project.platform(), platform);
    const QSize size = project.resolution();
    QCOMPARE(project.screenCount(), 3);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(project.saveToBytes(&error, path)),
             QString::fromUtf8(file.readAll()));

    QVERIFY(FrameRecorder::start(chipCodeOfPlatform(platform), size));
    QSet<quint32> ids;
    for (int i = 0; i < project.screenCount(); ++i) {
        CScreenModel *screen = project.screen(i);
        CModelIterator walk(screen);
        for (walk.next(); walk.current(); walk.next()) {
            const CItemModel &item = *walk.currentItem();
            if (item.kind() == CItemModel::Kind::Group)
                continue;
            const QString what = screen->name() + QLatin1Char('/') + item.name();
            QVERIFY2(project.library()->contains(item.itemTypeName()), qPrintable(what));
            QVERIFY2(item.id() > 0 && !ids.contains(item.id()), qPrintable(what));
            const QRectF frame(QPointF(), size); // by corners: lines have an empty rectangle
            QVERIFY2(frame.contains(item.bounds().topLeft()) &&
                         frame.contains(item.bounds().bottomRight()),
                     qPrintable(what));
            ids.insert(item.id());
        }
        const FrameRecorder::Answer answer = FrameRecorder::render(*screen);
        QVERIFY2(answer.errors.isEmpty(), qPrintable(screen->name() + answer.errors));
        QCOMPARE(answer.frame.size(), size);
        QVERIFY(FrameRecorder::render(*screen).frame == answer.frame);
    }
}

QTEST_MAIN(tst_Examples)
#include "tst_examples.moc"
