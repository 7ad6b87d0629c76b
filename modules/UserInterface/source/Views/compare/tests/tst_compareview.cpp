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
#include "CVersionDialog.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeView>
#include <QWheelEvent>
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
    void saysWhatPeopleRead();
    void picturesShareZoomAndPlace();
    void aTypedRevisionIsAskedOf();
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
        const QString reason = failed.last().at(0).toString();
        QVERIFY(m_view->findChild<QLabel *>()->text().contains(reason));
    }
    QCOMPARE(m_comparison->title(), "v1");
}

void tst_CompareView::saysWhatPeopleRead()
{
    QByteArray old = now();
    old.replace("fill_color=\"#ff0000\"", "fill_color=\"#00ff00\" hidden_in_editor=\"1\"");
    old.replace("  <Kiv_Rectangle_T",
                "  <Kiv_Text_T name=\"T\" id=\"4\" font=\"20\" align=\"right\"/>\n"
                "  <Kiv_Circle_T name=\"C\" id=\"5\" point_size=\"40\"/>\n  <Kiv_Rectangle_T");
    QByteArray later = old;
    later.replace("#00ff00\" hidden_in_editor=\"1\"", "#ff0000\"")
        .replace("font=\"20\"", "font=\"21\"");
    later.replace("\"right\"", "\"center\"").replace("\"40\"", "\"56\"");
    QString error;
    QVERIFY2(m_project->loadFromBytes(later, &error), qPrintable(error));
    m_comparison->compareWith(old, "v1");
    QTRY_COMPARE(rows().size(), 9);
    const QStringList told = rows();
    QVERIFY2(told[2].startsWith("Font|20 · ") && told[2].contains("|21 · "), qPrintable(told[2]));
    QCOMPARE(told[3], "Alignment|Right|Center");
    QCOMPARE(told.mid(5), QStringList({"Radius|2.5|3.5", "Changed: Rectangle \"A\"||",
                                       "Fill colour|#00ff00|#ff0000", "Hidden|True|False"}));
    const QAbstractItemModel *model = list()->model();
    const QModelIndex colour = model->index(0, 1, model->index(2, 0, model->index(0, 0)));
    const auto swatch = colour.data(Qt::DecorationRole).value<QPixmap>().toImage();
    QCOMPARE(swatch.pixelColor(swatch.rect().center()), QColor("#00ff00"));
    QCOMPARE(colour.siblingAtColumn(0).data(Qt::ToolTipRole).toString(), "fill_color");
}

/// A pixel of the page stays below the pointer; both sides show the same part.
void tst_CompareView::picturesShareZoomAndPlace()
{
    CComparedPictures pictures;
    pictures.resize(406, 200);
    CPicturePairs::SShown shown;
    shown.before = QImage(100, 80, QImage::Format_RGB32);
    shown.before.fill(Qt::black);
    shown.now = shown.before;
    shown.before.setPixelColor(70, 50, Qt::green);
    shown.now.setPixelColor(70, 50, Qt::blue);
    pictures.setPictures(shown);
    pictures.setMode(CComparedPictures::SideBySide);
    pictures.show();
    QVERIFY(pictures.isFitted());
    QCOMPARE(pictures.zoom(), 1.0); // the largest whole one with which it fits
    const auto middleOf = [&pictures](const QColor &colour) {
        const QImage picture = pictures.viewport()->grab().toImage();
        QRect found;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == colour)
                    found |= QRect(x, y, 1, 1);
        return found.center();
    };
    pictures.zoomTo(4, middleOf(Qt::green));
    const QPoint before = middleOf(Qt::green);
    QCOMPARE(middleOf(Qt::blue).y(), before.y());
    for (int step = 0; step < 2; ++step) {
        QWheelEvent wheel(before, pictures.viewport()->mapToGlobal(before), {}, {0, 120},
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pictures.viewport(), &wheel);
    }
    QCOMPARE(pictures.zoom(), 8.0);
    QVERIFY((middleOf(Qt::green) - before).manhattanLength() <= 8);
    const QPoint now = middleOf(Qt::blue);
    QCOMPARE(now - middleOf(Qt::green), QPoint(206, 0)); // a pane and the gap
    pictures.setMode(CComparedPictures::Swipe);
    QTest::keyClick(&pictures, Qt::Key_1);
    QCOMPARE(pictures.zoom(), 1.0);
    QTest::keyClick(&pictures, Qt::Key_0);
    QVERIFY(pictures.isFitted());
    QCOMPARE(pictures.zoom(), 2.0);
}

/// Of a project that lies in no work tree only what is kept is offered; in one, the dialog stays
/// open until git knows the revision.
void tst_CompareView::aTypedRevisionIsAskedOf()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("a.nyx");
    QFile(file).open(QIODevice::WriteOnly);
    for (const QStringList &words :
         {QStringList{"init", "-q"}, QStringList{"add", "."},
          QStringList{"-c", "user.name=n", "-c", "user.email=e@f.g", "commit", "-q", "-m", "one"}})
        QCOMPARE(QProcess::execute("git", QStringList{"-C", folder.path()} + words), 0);
    CVersionDialog dialog({}, file, nullptr);
    dialog.show();
    auto *typed = dialog.findChild<QLineEdit *>();
    QTRY_VERIFY(typed->isVisible());
    QTest::keyClicks(typed, "--all");
    QTest::keyClick(typed, Qt::Key_Return);
    QTRY_VERIFY(typed->hasSelectedText()); // and why stands there
    QVERIFY(dialog.isVisible());
    QTest::keyClicks(typed, "HEAD");
    QTest::keyClick(typed, Qt::Key_Return);
    QTRY_VERIFY(!dialog.isVisible());
    QCOMPARE(dialog.choice().kind, CVersionDialog::EKind::Git);
    QCOMPARE(dialog.choice().id.size(), 40);
    QVERIFY(dialog.choice().title.contains(dialog.choice().id.left(9))); // HEAD may be another
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
    m_comparison->compareWith(before, "given up");
    m_comparison->setWanted(false); // the dock is closed
    QVERIFY(!m_comparison->isWorking());
    QTest::qWait(50); // a late answer
    QVERIFY(!m_comparison->earlier());
    m_comparison->setWanted(true);
    m_comparison->compareWith(now(), "given up for the next");
    m_comparison->compareWith(before, "v0");
    QTRY_VERIFY(m_comparison->result());
    QCOMPARE(m_comparison->title(), "v0");
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
