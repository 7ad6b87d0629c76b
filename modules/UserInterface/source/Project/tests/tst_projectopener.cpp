#include "CProjectOpener.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"
#include "PropertyKey.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <functional>
#include <memory>

using namespace ProjectTestSupport;

Q_DECLARE_METATYPE(std::function<void()>)

/// Long documents are read while another project is open and in use.
class tst_ProjectOpener : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        for (const char *name : {"long", "other"})
            QVERIFY(writeFile(at(name), document(name, Items)));
        QVERIFY(QFileInfo(at("long")).size() > CProjectOpener::ReadAtOnce);
        for (const char *name : {"old", "short"})
            QVERIFY(writeFile(at(name), document(name)));
        m_user = std::make_unique<CScriptedUser>();
        m_user->newOptions = {{"project_name", "fresh"}, {"working_directory", m_folder->path()}};
        m_session = std::make_unique<CProjectSession>(m_user.get(), &m_recent);
        m_opener = new CProjectOpener(m_session.get());
        m_opener->setBusyCheck([this] { return m_isBusy; });
        m_isBusy = false;
        QVERIFY(m_session->openFile(at("old")));
    }

    void oneStep()
    {
        QSignalSpy reading(m_opener, &CProjectOpener::readingChanged);
        QSignalSpy loaded(m_session.get(), &CProjectSession::projectLoaded);
        connect(m_opener, &CProjectOpener::aboutToOpen, this, [this] { m_nameBefore = name(); });
        m_opener->open(at("long"));
        QCOMPARE(name(), "old");
        QTRY_COMPARE(name(), "long");
        QCOMPARE(m_nameBefore, "old");
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(reading, QList<QVariantList>({{at("long")}, {QString()}}));
        const CProjectModel *project = m_session->project();
        QCOMPARE(project->screen(0)->rowCount(), Items);
        QVERIFY(project->thread() == thread() && project->undoStack()->thread() == thread());
        change(m_session->project());
        QVERIFY(m_session->save());
    }

    void inBetween_data()
    {
        using Act = std::function<void()>;
        QTest::addColumn<Act>("act");
        QTest::addColumn<QString>("left");
        QTest::newRow("another") << Act([this] { m_opener->open(at("other")); }) << "other";
        QTest::newRow("a short one") << Act([this] { m_opener->open(at("short")); }) << "short";
        QTest::newRow("a new one") << Act([this] { m_session->newProject(); }) << "fresh";
        QTest::newRow("cancelled") << Act([this] { m_opener->cancel(); }) << "old";
        QTest::newRow("closed") << Act([this] { m_session->close(); }) << "long";
        QTest::newRow("end") << Act([this] { m_session.reset(); }) << "";
        QTest::newRow("unsaved") << Act([this] { change(m_session->project()); }) << "old";
        QTest::newRow("removed") << Act([this] { QFile::remove(at("long")); }) << "old";
        QTest::newRow("broken") << Act([this] { QVERIFY(writeFile(at("long"), "<")); }) << "old";
        QTest::newRow("a dialog") << Act([this] { m_isBusy = true; }) << "old";
    }

    void inBetween()
    {
        QFETCH(const std::function<void()>, act);
        QFETCH(const QString, left);
        m_opener->open(at("long"));
        act();
        QThreadPool::globalInstance()->waitForDone();
        QTest::qWait(50);
        QCOMPARE(name(), left);
        const bool wasAsked = QByteArray(QTest::currentDataTag()) == "unsaved";
        QCOMPARE(m_user->asked.contains("close"), wasAsked);
        if (!m_isBusy)
            return;
        QVERIFY(writeFile(at("long"), document("changed", Items))); // after it was read
        m_isBusy = false;
        QTRY_COMPARE(name(), "changed");
    }

    void noProject()
    {
        QVERIFY(writeFile(at("long"), QByteArray(CProjectOpener::ReadAtOnce + 1, 'x')));
        m_opener->open(at("long"));
        QTRY_COMPARE(m_user->errors.size(), 1);
        QCOMPARE(name(), "old");
    }

private:
    static constexpr int Items = 1000;

    QString at(const QString &name) const { return m_folder->filePath(name + ".nyx"); }
    QString name() const
    {
        const CProjectModel *project = m_session ? m_session->project() : nullptr;
        return project ? project->propertyText(PropertyKey::ProjectName) : QString();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CScriptedUser> m_user;
    CRecentProjects m_recent;
    std::unique_ptr<CProjectSession> m_session;
    CProjectOpener *m_opener = nullptr;
    bool m_isBusy = false;
    QString m_nameBefore;
};

QTEST_GUILESS_MAIN(tst_ProjectOpener)
#include "tst_projectopener.moc"
