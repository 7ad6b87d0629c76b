#include "CChecksView.h"
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CImageRenewal.h"
#include "CItemModel.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "CheckFixes.h"
#include "ItemFactory.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "TestFiles.h"

#include <QCheckBox>
#include <QDir>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTranslator>
#include <QTreeWidget>
#include <QUndoStack>
#include <QtTest>

#include <memory>

/// The whole way from a change of the project to the list, with the real emulator.
class tst_ChecksView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void followsTheProject();
    void goesThroughThem();
    void whatIsGoneIsNotListed();
    void mends_data();
    void mends();
    void ignoring();
    void measures();
    void imagesArePaintedAnew();
    void waitsWhileBusy();

private:
    QStringList rows() const;
    CItemModel *item(const char *name) const;
    void set(const char *name, const QString &key, const QVariant &value) const
    {
        item(name)->setProperty(key, value);
    }
    CCheckResults::SEntry first() const { return m_results->entries().value(0); }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CEmulatorSession> m_session;
    std::unique_ptr<CScreenRounds> m_rounds;
    std::unique_ptr<CCheckResults> m_results;
    std::unique_ptr<CChecksView> m_view;
    bool m_isBusy = false;
};

namespace {

const QByteArray clean =
    R"(<Kiv_Project_T project_name="p" platform="QX110" width="320" height="240">
 <Kiv_Screen_T name="Home" color="#101010">
  <Kiv_Rectangle_T name="A" id="1" x_coordinate="10" y_coordinate="10" width="60" height="60"/>
  <Kiv_Rectangle_T name="B" id="2" x_coordinate="100" y_coordinate="10" width="60" height="60"/>
 </Kiv_Screen_T>
 <Kiv_Screen_T name="Menu" color="#101010">
  <Kiv_Rectangle_T name="C" id="3" x_coordinate="10" y_coordinate="10" width="60" height="60"/>
 </Kiv_Screen_T>
</Kiv_Project_T>)";

} // namespace

void tst_ChecksView::initTestCase()
{
    const CProgramData data(qEnvironmentVariable("KIV_BIN_DIR"));
    QCOMPARE(data.loadWidgetLibrary(), QString());
    QCOMPARE(data.registerEmulator(), QString());
}

void tst_ChecksView::init()
{
    m_isBusy = false;
    m_project = std::make_unique<CProjectModel>();
    QString error;
    QVERIFY2(m_project->loadFromBytes(clean, &error), qPrintable(error));
    m_session = std::make_unique<CEmulatorSession>(CEmulatorAdapter::instance());
    m_session->open(m_project.get());
    m_results = std::make_unique<CCheckResults>();
    m_rounds = std::make_unique<CScreenRounds>();
    m_view = std::make_unique<CChecksView>();
    m_view->setResults(m_results.get());
    m_view->show();
    m_rounds->setBusy([this] { return m_isBusy; });
    connect(m_rounds.get(), &CScreenRounds::drawn, m_results.get(), &CCheckResults::takeScreen);
    connect(m_results.get(), &CCheckResults::lookingAtPicture, m_rounds.get(),
            &CScreenRounds::setHeld);
    connect(m_rounds.get(), &CScreenRounds::done, m_results.get(), &CCheckResults::takeProject);
    m_results->setProject(m_project.get());
    m_rounds->setProject(m_project.get());
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    m_rounds->setWanted(this, true);
    QVERIFY(done.wait(10000));
    QCOMPARE(rows(), QStringList());
}

void tst_ChecksView::cleanup()
{
    m_view.reset();
    m_rounds.reset();
    m_session->close();
    m_project.reset();
}

/// "page: rule" of all that nobody ignores.
QStringList tst_ChecksView::rows() const
{
    QStringList rows;
    const auto *tree = m_view->findChild<QTreeWidget *>();
    for (QTreeWidgetItemIterator it(const_cast<QTreeWidget *>(tree)); *it; ++it)
        if ((*it)->parent())
            rows.append((*it)->text(1) + ": " + (*it)->text(0));
    return rows;
}

CItemModel *tst_ChecksView::item(const char *name) const
{
    CItemModel *found = nullptr;
    forEachItem(*m_project, [&](CItemModel &each) {
        if (each.name() == QLatin1String(name))
            found = &each;
    });
    return found;
}

void tst_ChecksView::followsTheProject()
{
    QSignalSpy drawn(m_rounds.get(), &CScreenRounds::drawn);
    set("B", PropertyKey::X, 400);
    const QString outside = "Home: \"B\" lies outside the screen.";
    QTRY_COMPARE_WITH_TIMEOUT(rows(), QStringList(outside), 10000);
    QCOMPARE(m_view->count(), 1);
    QCOMPARE(drawn.count(), 1); // the other screen has not changed
    set("C", PropertyKey::Id, 1);
    QTRY_COMPARE_WITH_TIMEOUT(
        rows(), QStringList({outside, "Menu: \"C\" has the id 1 as \"A\" has."}), 10000);
    set("B", PropertyKey::X, 100);
    set("C", PropertyKey::Id, 3);
    QTRY_COMPARE_WITH_TIMEOUT(rows(), QStringList(), 10000);
}

void tst_ChecksView::goesThroughThem()
{
    set("A", PropertyKey::X, 400);
    set("C", PropertyKey::X, 400);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 2, 10000);
    QStringList places;
    connect(m_view.get(), &CChecksView::placeWanted, this,
            [&places](CItemModel *place) { places.append(place->name()); });
    for (const int step : {1, 1, 1, -1})
        m_view->goTo(step);
    QCOMPARE(places, QStringList({"A", "C", "A", "C"}));
    set("A", PropertyKey::Y, 11); // the list is made anew; the chosen row stays chosen
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    QVERIFY(done.wait(10000));
    m_view->goTo(1);
    QCOMPARE(places.last(), QString("A"));
}

void tst_ChecksView::whatIsGoneIsNotListed()
{
    set("C", PropertyKey::X, 400);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
    m_project->removeRow(1);
    QCOMPARE(m_results->entries().size(), 0); // at once, before anything is drawn again
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 0, 10000);
}

void tst_ChecksView::mends_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("a name twice") << PropertyKey::Name << QVariant("A");
    QTest::newRow("an id twice") << PropertyKey::Id << QVariant(1);
}

void tst_ChecksView::mends()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    set("B", key, value);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
    QString error;
    const QByteArray before = m_project->saveToBytes(&error);
    QVERIFY(!CheckFixes::mend(first()).isEmpty());
    CheckFixes::apply(*m_project, first());
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 0, 10000);
    QCOMPARE(m_project->undoStack()->count(), 1);
    m_project->undoStack()->undo();
    QCOMPARE(m_project->saveToBytes(&error), before);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
}

void tst_ChecksView::ignoring()
{
    set("B", PropertyKey::X, 400);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
    QString error;
    const QByteArray before = m_project->saveToBytes(&error);
    CheckFixes::ignore(*m_project, first(), "waits there");
    QTRY_COMPARE_WITH_TIMEOUT(m_view->count(), 0, 10000);
    QCOMPARE(rows(), QStringList());
    QVERIFY(
        m_project->saveToBytes(&error).contains("ignored_checks=\"outside-screen: waits there\""));
    m_view->findChild<QCheckBox *>()->setChecked(true);
    QVERIFY(rows().value(0).endsWith("(waits there)"));
    CheckFixes::ignore(*m_project, first(), QString());
    QTRY_COMPARE_WITH_TIMEOUT(m_view->count(), 1, 10000);
    QCOMPARE(m_project->saveToBytes(&error), before);
}

void tst_ChecksView::measures()
{
    connect(m_results.get(), &CCheckResults::measuresChanged, m_rounds.get(),
            &CScreenRounds::restart);
    QString error;
    m_project->screen(0)->appendRow(
        ItemFactory::make("Kiv_Button_T", m_project->library(), m_project.get()));
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000); // 40 pixels are less than 7 mm
    const QByteArray before = m_project->saveToBytes(&error);
    const CheckFixes::SMeasure measure = CheckFixes::measure(first());
    const auto *offered =
        m_view->findChild<QToolButton *>("checkMeasures"); // without a finding too
    QCOMPARE(offered->menu()->actions().value(0)->text(), measure.title);
    QVERIFY(offered->isEnabled());
    CheckFixes::setMeasure(*m_project, measure.key, 100);
    QTRY_COMPARE_WITH_TIMEOUT(rows(), QStringList(), 10000);
    QLocale::setDefault(QLocale::German); // as the texts will be
    m_project->undoStack()->undo();
    QCOMPARE(m_project->saveToBytes(&error), before);
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
    QVERIFY2(rows().first().contains(" 6,8 mm "), qPrintable(rows().first()));
    QLocale::setDefault(QLocale::c());

    struct COther final : QTranslator
    {
        bool isEmpty() const override { return false; }
        QString translate(const char *context, const char *, const char *, int) const override
        {
            return context == QByteArray("Checks") ? QStringLiteral("other") : QString();
        }
    } other;
    QVERIFY(QCoreApplication::installTranslator(&other)); // tells the view of it
    QTRY_COMPARE_WITH_TIMEOUT(rows(), QStringList("Home: other"), 10000);
}

/// Of which nothing in the project tells.
void tst_ChecksView::imagesArePaintedAnew()
{
    const QTemporaryDir folder;
    const auto paint = [&folder](Qt::GlobalColor colour) {
        QImage picture(16, 16, QImage::Format_RGB32);
        picture.fill(colour);
        return picture.save(folder.filePath("logo.png"));
    };
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR")); // where the image tools are
    CProjectModel::setCurrent(m_project.get());
    m_project->setWorkingDirectory(folder.path());
    QVERIFY(paint(Qt::blue));
    auto *image = ItemFactory::make(TypeName::Bitmap, m_project->library(), m_project.get());
    m_project->screen(0)->appendRow(image);
    CItemImages images(nullptr, nullptr);
    const auto made = images.take(*image, folder.filePath("logo.png"), "RGB565");
    QVERIFY(made);
    for (auto it = made->values.begin(); it != made->values.end(); ++it)
        image->setProperty(it.key(), it.value());
    QTRY_VERIFY_WITH_TIMEOUT(m_view->count() > 0, 10000); // other things of the image
    QVERIFY(paint(Qt::red));
    const auto isTold = [this] {
        m_results->followFiles();
        return rows().join('\n').contains("logo.png, which has changed");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isTold(), 10000);

    CImageRenewal(nullptr).run(*m_project, folder.filePath("logo.png"));
    QCOMPARE(m_project->undoStack()->count(), 1);
    QCOMPARE(image->propertyText(PropertyKey::BaseName), QString("logo_2"));
    const QString unused = ": No item shows p_ConvertedImages/logo_RGB565.raw.";
    m_results->lookAtFiles();
    QTRY_COMPARE_WITH_TIMEOUT(rows().last(), unused, 10000);
    const auto unusedEntry = m_results->entries().last();
    const int count = rows().size();
    CheckFixes::ignore(*m_project, unusedEntry, "for later");
    QCOMPARE(rows().size(), count - 1);
    m_project->undoStack()->undo();
    QCOMPARE(rows().last(), unused);
    CheckFixes::removeFile(*m_project, unusedEntry,
                           {{}, [this](const QString &) { m_results->lookAtFiles(); }});
    QCOMPARE(TestFiles::below(folder.filePath("p_ConvertedImages")).keys(),
             QStringList({"logo.png", "logo_2.png", "logo_2_RGB565.json", "logo_2_RGB565.raw"}));
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), count - 1, 10000);
    m_project->undoStack()->undo();
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), count, 10000);
    m_project->undoStack()->undo();
    QCOMPARE(image->propertyText(PropertyKey::BaseName), QString("logo"));

    QVERIFY(paint(Qt::blue));
    QVERIFY(QFile::remove(folder.filePath("p_ConvertedImages/logo_RGB565.raw")));
    m_rounds->restart();
    const auto isMissing = [this] {
        const auto entries = m_results->entries();
        return std::find_if(entries.begin(), entries.end(), [](const auto &each) {
                   return each.finding.rule == ERule::MissingImage &&
                          CheckFixes::sourceToConvert(each).endsWith("/logo.png");
               }) != entries.end();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isMissing(), 10000);
    CImageRenewal(nullptr).run(*m_project, folder.filePath("logo.png"));
    QTRY_VERIFY_WITH_TIMEOUT(!isMissing(), 10000);
    CProjectModel::setCurrent(nullptr);
}

void tst_ChecksView::waitsWhileBusy()
{
    QSignalSpy drawn(m_rounds.get(), &CScreenRounds::drawn);
    m_isBusy = true;
    set("B", PropertyKey::X, 400);
    QTest::qWait(3 * CScreenRounds::IdleTime);
    QCOMPARE(drawn.count(), 0);
    m_isBusy = false;
    QTRY_COMPARE_WITH_TIMEOUT(rows().size(), 1, 10000);
}

QTEST_MAIN(tst_ChecksView)
#include "tst_checksview.moc"
