#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CModelIterator.h"
#include "CProgramData.h"
#include "CProjectExporter.h"
#include "TestProject.h"

#include <QTemporaryDir>
#include <QtTest>

#include <map>
#include <random>

/// The adapter with the emulator library itself: its thread, its order of callbacks, its stop.
class tst_AdapterWithLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void showsTheScreen();
    void stopsWhileBusy();
    void survivesRandomInterleaving();

private:
    struct SShown
    {
        void *observer;
        QRgb corner;
        QSize size;
    };
    void setColour(int row, const char *colour)
    {
        m_project->screen(row)->setProperty(PropertyKey::Color, QString::fromLatin1(colour));
    }

    QTemporaryDir m_folder;
    CEmulatorAdapter *m_adapter = CEmulatorAdapter::instance();
    CEmulatorSession m_session{m_adapter};
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<QObject> m_receiver;
    QList<SShown> m_shown;
};

void tst_AdapterWithLibrary::initTestCase()
{
    QFile script(m_folder.filePath("kiv_render.lua"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("function render(screen) clear(screen.color) end");
    script.close();
    QCOMPARE(CProgramData(m_folder.path()).registerEmulator(), QString());
}

void tst_AdapterWithLibrary::init()
{
    m_project = testProject({"A", "B", "C"});
    m_session.open(m_project.get());
    m_shown.clear();
    m_receiver = std::make_unique<QObject>();
    connect(m_adapter, &CEmulatorAdapter::emulatorFrameCallback, m_receiver.get(),
            [this](bool, const QPixmap &pixmap, uint32_t, uint32_t, void *observer) {
                m_shown.append({observer, pixmap.toImage().pixel(0, 0), pixmap.size()});
            });
}

void tst_AdapterWithLibrary::cleanup()
{
    m_receiver.reset();
    m_session.close();
}

void tst_AdapterWithLibrary::showsTheScreen()
{
    int observer = 0;
    setColour(1, "#123456");
    m_adapter->renderForeground(m_project->screen(1), &observer);
    setColour(1, "#654321"); // too late for that request: it is read when it is made
    QTRY_COMPARE(m_shown.size(), 1);
    QCOMPARE(m_shown[0].observer, &observer);
    QCOMPARE(m_shown[0].corner, 0xFF123456u);
    QCOMPARE(m_shown[0].size, QSize(480, 272));

    m_project->setProjectProperties({{PropertyKey::Width, QStringLiteral("320")},
                                     {PropertyKey::Platform, QStringLiteral("QX100")}});
    QVERIFY(m_session.applyOptions(m_project.get()));
    m_adapter->renderForeground(m_project->screen(1), &observer);
    QTRY_COMPARE(m_shown.size(), 2);
    QCOMPARE(m_shown[1].corner, 0xFF654321u);
    QCOMPARE(m_shown[1].size, QSize(320, 272));

    const auto screens = CProjectExporter(m_adapter).collect(
        m_project.get(), CProjectExporter::EContent::DisplayListsAndFrames);
    QCOMPARE(screens->size(), 3);
    QCOMPARE(screens->at(1).text, QString("CLEAR(0x654321);\nEND();\n"));
    QCOMPARE(screens->at(1).frame.pixel(319, 271), 0xFF654321u);
}

void tst_AdapterWithLibrary::stopsWhileBusy()
{
    int observer = 0;
    m_adapter->renderForeground(m_project->screen(0), &observer);
    m_adapter->renderForeground(m_project->screen(1), &observer);
    m_adapter->emulatorStop();
    QCoreApplication::processEvents(); // what the library told before the stop
    QVERIFY(m_shown.isEmpty());
    QVERIFY(!m_adapter->isBusy());
}

void tst_AdapterWithLibrary::survivesRandomInterleaving()
{
    std::mt19937 random(7);
    const auto below = [&random](int limit) { return int(random() % uint32_t(limit)); };
    std::map<int, int> observers; // by number of the request
    int requests = 0;
    for (int step = 0; step < 3000; ++step) {
        const int row = below(m_project->screenCount());
        switch (below(8)) {
        case 0:
        case 1:
            m_adapter->renderForeground(m_project->screen(row), &observers[++requests]);
            break;
        case 2: {
            int &observer = observers[++requests];
            CModelIterator iterator(m_project->screen(row));
            m_adapter->renderBackground(&iterator, &observer);
            if (below(2) == 0)
                QCoreApplication::processEvents();
            m_adapter->withdraw(&observer); // the iterator goes
            break;
        }
        case 3:
            m_project->removeRow(row);
            appendTestScreen(m_project.get(), QStringLiteral("again"));
            break;
        case 4:
            if (below(8) == 0)
                m_session.open(m_project.get());
            break;
        case 5:
            if (below(8) == 0)
                m_adapter->emulatorStop();
            break;
        default:
            QCoreApplication::processEvents();
        }
    }
    QTRY_VERIFY(!m_adapter->isBusy());
    QVERIFY(!m_shown.isEmpty());
    for (const SShown &shown : m_shown)
        QCOMPARE(shown.size, QSize(480, 272));
}

QTEST_MAIN(tst_AdapterWithLibrary)
#include "tst_adapterwithlibrary.moc"
