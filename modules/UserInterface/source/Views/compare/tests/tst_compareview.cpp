#include "CCompareView.h"
#include "CComparedPictures.h"
#include "CComparison.h"
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CGitVersions.h"
#include "CItemModel.h"
#include "CPicturePairs.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <memory>

/// From an earlier version to the list, the pictures and the place, with the real emulator.
class tst_CompareView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void listsPicturesAndPlaces();
    void noPictures_data();
    void noPictures();
    void closedMeanwhile();
    void versionsInGit();

private:
    QStringList rows() const { return rowsBelow({}); }
    QStringList rowsBelow(const QModelIndex &parent) const;
    QTreeView *list() const { return m_view->findChild<QTreeView *>(); }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CEmulatorSession> m_session;
    std::unique_ptr<CComparison> m_comparison;
    std::unique_ptr<CCompareView> m_view;
};

namespace {
const QByteArray before =
    R"(<Kiv_Project_T project_name="p" platform="QX110" width="320" height="240">
 <Kiv_Screen_T name="Home" color="#000000">
  <Kiv_Rectangle_T name="A" id="1" x_coordinate="10" y_coordinate="10" width="60" height="60" fill_color="#ff0000"/>
  <Kiv_Rectangle_T name="Gone" id="2" x_coordinate="10" y_coordinate="100" width="60" height="60"/>
 </Kiv_Screen_T>
 <Kiv_Screen_T name="Same" color="#000000"/></Kiv_Project_T>)";

QByteArray now()
{
    QByteArray xml = before;
    xml.replace("x_coordinate=\"10\" y_coordinate=\"10\"",
                "x_coordinate=\"30\" y_coordinate=\"10\"");
    const int gone = xml.indexOf("  <Kiv_Rectangle_T name=\"Gone\"");
    return xml.remove(gone, xml.indexOf('\n', gone) + 1 - gone);
}
} // namespace

void tst_CompareView::initTestCase()
{
    qRegisterMetaType<CGitVersions::SVersion>();
    const CProgramData data(qEnvironmentVariable("KIV_BIN_DIR"));
    QCOMPARE(data.loadWidgetLibrary(), QString());
    QCOMPARE(data.registerEmulator(), QString());
}

void tst_CompareView::init()
{
    QString error;
    m_project = std::make_unique<CProjectModel>();
    QVERIFY2(m_project->loadFromBytes(now(), &error), qPrintable(error));
    m_session = std::make_unique<CEmulatorSession>(CEmulatorAdapter::instance());
    m_session->open(m_project.get());
    m_comparison = std::make_unique<CComparison>();
    m_comparison->setProject(m_project.get());
    m_comparison->setWanted(true);
    m_view = std::make_unique<CCompareView>(m_comparison.get());
    m_view->resize(800, 300);
    m_view->show();
}

void tst_CompareView::cleanup()
{
    m_view.reset();
    m_comparison.reset();
    m_session->close();
    m_project.reset();
}

QStringList tst_CompareView::rowsBelow(const QModelIndex &parent) const
{
    const QAbstractItemModel *model = list()->model();
    QStringList all;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        QStringList texts;
        for (int column = 0; column < 3; ++column)
            texts.append(model->index(row, column, parent).data().toString());
        all += QStringList(texts.join('|')) + rowsBelow(model->index(row, 0, parent));
    }
    return all;
}

void tst_CompareView::listsPicturesAndPlaces()
{
    m_comparison->compareWith(before, "v1");
    // Two squares of 60 by 60, one moved by 20, one gone; the edges are the chip's.
    QTRY_VERIFY(rows().value(0).startsWith("Page changed: Home||Pixels: "));
    QCOMPARE(rows().mid(1),
             QStringList({"Moved: Rectangle \"A\"||", "X|10|30", "Removed: Rectangle \"Gone\"||"}));
    CComparedPictures *pictures = m_view->pictures();
    pictures->setMode(CComparedPictures::Before);
    QTRY_VERIFY(!pictures->shown().isNull());
    QCOMPARE(pictures->shown().pixelColor(15, 40), QColor("#ff0000"));
    pictures->setMode(CComparedPictures::Now);
    QCOMPARE(pictures->shown().pixelColor(15, 40), QColor(Qt::black));
    QCOMPARE(pictures->shown().pixelColor(85, 40), QColor("#ff0000"));
    pictures->setMode(CComparedPictures::Swipe); // in the middle
    QCOMPARE(pictures->shown().pixelColor(15, 40), QColor("#ff0000"));
    for (int i = 0; i < 60; ++i) // to the left end
        QTest::keyClick(pictures, Qt::Key_Left);
    QCOMPARE(pictures->shown().pixelColor(15, 40), QColor(Qt::black));
    pictures->setMode(CComparedPictures::Blink);
    const QImage first = pictures->shown();
    QTRY_VERIFY(pictures->shown() != first);

    QSignalSpy wanted(m_view.get(), &CCompareView::placeWanted);
    const auto click = [this](int item) {
        const QRect row =
            list()->visualRect(list()->model()->index(item, 0, list()->model()->index(0, 0)));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
    };
    click(0);
    QCOMPARE(wanted.takeLast().at(0).value<CItemModel *>()->name(), "A");
    click(1); // it is no more: its page
    QCOMPARE(wanted.takeLast().at(0).value<CItemModel *>()->name(), "Home");
    m_project->removeRow(0); // nothing follows what is gone
    click(0);
    QVERIFY(wanted.isEmpty());
    QSignalSpy failed(m_comparison.get(), &CComparison::failed);

    const QByteArray hostile[] = {"", "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>", "<Kiv_Project_T>"};
    for (const QByteArray &each : hostile) {
        m_comparison->compareWith(each, "bad");
        QVERIFY(failed.wait());
    }
    QCOMPARE(m_comparison->title(), "v1");
}

void tst_CompareView::noPictures_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("chip") << QByteArray("QX110") << QByteArray("QX112");
    QTest::newRow("size") << QByteArray("height=\"240\"") << QByteArray("height=\"200\"");
}

void tst_CompareView::noPictures()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    m_comparison->compareWith(QByteArray(before).replace(from, to), "v1");
    QTRY_COMPARE(rows().value(0), "Project||");
    QVERIFY(rows().contains("Moved: Rectangle \"A\"||"));
    QVERIFY(!m_comparison->whyNoPictures().isEmpty());
}

void tst_CompareView::closedMeanwhile()
{
    m_comparison->compareWith(before, "v1");
    QSignalSpy drawn(m_comparison->pictures(), &CPicturePairs::taken);
    QVERIFY(drawn.wait());
    m_comparison->setProject(nullptr);
    QCOMPARE(rows(), QStringList());
    QSignalSpy failed(m_comparison.get(), &CComparison::failed);
    m_comparison->compareWith(before, "v1");
    QCOMPARE(failed.size(), 1);
    QTest::qWait(50); // a late answer
    QCOMPARE(rows(), QStringList());
}

void tst_CompareView::versionsInGit()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("a [b].nyx");
    const auto git = [&folder](QStringList arguments) {
        const QStringList who = {"-C",          folder.path(), "-c",
                                 "user.name=n", "-c",          "user.email=e@f.g"};
        return QProcess::execute("git", who + arguments);
    };
    QCOMPARE(git({"init", "-q"}), 0); // scripts/packages.txt has it
    for (const QByteArray &version : {before, now()}) {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(version);
        out.close();
        QCOMPARE(git({"add", "."}), 0);
        QCOMPARE(git({"commit", "-q", "-m", "one\tmore"}), 0);
    }
    QVector<CGitVersions::SVersion> versions;
    QByteArray bytes;
    CGitVersions asked(file);
    connect(&asked, &CGitVersions::listed, this, [&](const auto &all) { versions = all; });
    connect(&asked, &CGitVersions::fetched, this, [&](const auto &all) { bytes = all; });
    asked.list();
    QTRY_COMPARE(versions.size(), 2);
    QCOMPARE(versions[1].subject, "one more");
    asked.fetch(versions[1].id);
    QTRY_COMPARE(bytes, before);
    QSignalSpy failed(&asked, &CGitVersions::failed);
    QCOMPARE(git({"tag", "-m", "t", "v 1", "HEAD~1"}) == 0, false); // git's own rule
    QCOMPARE(git({"tag", "-m", "t", "v1", "HEAD~1"}), 0);
    QSignalSpy resolved(&asked, &CGitVersions::resolved);
    for (const QString &typed : {QString(" HEAD~1 "), QString("v1"), versions[1].id.left(9)}) {
        asked.resolve(typed);
        QVERIFY2(resolved.wait(), qPrintable(typed));
        QCOMPARE(resolved.takeLast().at(0).value<CGitVersions::SVersion>().id, versions[1].id);
    }
    const QString touched = folder.filePath("touched");
    for (const QString &typed :
         {QString(), QString("--help"), QString("-n1"), QString("HEAD~9"), QString("HEAD\nHEAD"),
          QString("HEAD; touch " + touched), QString("HEAD:a [b].nyx"), QString("..HEAD")}) {
        asked.resolve(typed);
        QVERIFY2(failed.wait(), qPrintable(typed));
    }
    QVERIFY(resolved.isEmpty() && !QFile::exists(touched));
    QVERIFY(failed.last().at(0).toString().contains("\"..HEAD\""));
    CGitVersions elsewhere("/nowhere/at all.nyx");
    QSignalSpy none(&elsewhere, &CGitVersions::listed);
    elsewhere.list();
    QVERIFY(none.wait());
}

QTEST_MAIN(tst_CompareView)
#include "tst_compareview.moc"
