#include "CBudgetResults.h"
#include "CBudgetView.h"
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CItemModel.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "TestFiles.h"

#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QUndoStack>
#include <QtTest>

#include <functional>
#include <memory>

/// Something that happened to the example before it is looked at; given those that show the cup.
using Prepare = std::function<void(const QVector<CItemModel *> &, const QDir &)>;
Q_DECLARE_METATYPE(Prepare)

namespace {

void copyExample(const QString &name, const QString &folder)
{
    QCOMPARE(
        QProcess::execute(
            "cp", {"-r", qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples/" + name, folder}),
        0);
}

QVector<CItemModel *> users(const CProjectModel &project)
{
    QVector<CItemModel *> items;
    forEachItem(project, [&items](CItemModel &item) {
        if (item.propertyText(PropertyKey::BaseName) == QLatin1String("cappuccino"))
            items.append(&item);
    });
    return items;
}

} // namespace

/// From a project on the disk to the rows of the tables, with the real emulator.
class tst_BudgetView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void sumsAreTheEmulators_data();
    void sumsAreTheEmulators();
    void aClickSelects();
    void whatIsGoneIsNotSelected();
    void whatIfIsAdopted_data();
    void whatIfIsAdopted();
    void fitsIntoBudget_data();
    void fitsIntoBudget();

private:
    void open(const QString &name, const QString &folder = {}, const Prepare &prepare = {});
    void chooseAsset(const QString &name);
    QTreeView *table(const char *name) const { return m_view->findChild<QTreeView *>(name); }
    QTreeWidget *pages() const { return m_view->findChild<QTreeWidget *>(); }
    void click(QTreeView *view, int row) const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(row, 0)).center());
    }
    static qlonglong number(const QTreeView *view, int row, int column)
    {
        return QLocale().toLongLong(view->model()->index(row, column).data().toString());
    }

    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CEmulatorSession> m_session;
    std::unique_ptr<CScreenRounds> m_rounds;
    std::unique_ptr<CBudgetResults> m_results;
    std::unique_ptr<CBudgetView> m_view;
    QHash<QString, SMemoryUse> m_ramG; ///< as the emulator told it, by page
    QHash<QString, SMemoryUse> m_ramDl;
    QList<CItemModel *> m_wanted;
};

void tst_BudgetView::initTestCase()
{
    QLocale::setDefault(QLocale::German); // figures have separators
    const CProgramData data(qEnvironmentVariable("KIV_BIN_DIR"));
    QCOMPARE(data.loadWidgetLibrary(), QString());
    QCOMPARE(data.registerEmulator(), QString());
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR")); // as the program does, beside its tools
}

void tst_BudgetView::init()
{
    m_results = std::make_unique<CBudgetResults>();
    m_rounds = std::make_unique<CScreenRounds>();
    m_view = std::make_unique<CBudgetView>();
    m_view->setResults(m_results.get());
    connect(m_rounds.get(), &CScreenRounds::drawn, m_results.get(), &CBudgetResults::takeScreen);
    connect(m_rounds.get(), &CScreenRounds::done, m_results.get(), &CBudgetResults::takeProject);
    connect(m_rounds.get(), &CScreenRounds::drawn, this, [this](const SScreenExport &screen) {
        m_ramG[screen.screen->name()].used = screen.ramG;
        m_ramDl[screen.screen->name()].used = screen.ramDl;
    });
    connect(m_view.get(), &CBudgetView::itemsWanted, this,
            [this](const QList<CItemModel *> &items) { m_wanted = items; });
    m_view->resize(1200, 400);
    m_view->show();
    m_wanted.clear();
}

void tst_BudgetView::open(const QString &name, const QString &folder, const Prepare &prepare)
{
    const QString file =
        QStringLiteral("%1/%2/%2.nyx")
            .arg(folder.isEmpty() ? qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples" : folder,
                 name);
    m_project = std::make_unique<CProjectModel>();
    QString error;
    QVERIFY2(m_project->loadFromFile(file, &error), qPrintable(error));
    CProjectModel::setCurrent(m_project.get());
    if (prepare)
        prepare(users(*m_project), folder);
    m_session = std::make_unique<CEmulatorSession>(CEmulatorAdapter::instance());
    m_session->open(m_project.get());
    m_results->setProject(m_project.get());
    m_rounds->setProject(m_project.get());
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    m_rounds->setWanted(this, true);
    QVERIFY(done.wait(20000));
    QCOMPARE(pages()->topLevelItemCount(), 1 + m_project->screenCount());
}

void tst_BudgetView::chooseAsset(const QString &name)
{
    QTreeView *assets = table("budgetAssets");
    for (int row = 0; row < assets->model()->rowCount(); ++row)
        if (assets->model()->index(row, 0).data().toString() == name)
            click(assets, row);
    m_view->findChild<QTabWidget *>()->setCurrentIndex(2);
}

void tst_BudgetView::cleanup()
{
    m_view.reset();
    m_rounds.reset();
    m_results.reset();
    m_session->close();
    m_project.reset();
}

void tst_BudgetView::sumsAreTheEmulators_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"thermostat", "coffee-machine", "ev-charger"})
        QTest::newRow(name) << name;
}

void tst_BudgetView::sumsAreTheEmulators()
{
    QFETCH(QString, name);
    open(name);
    for (int i = 1; i < pages()->topLevelItemCount(); ++i) {
        QTreeWidgetItem *page = pages()->topLevelItem(i);
        pages()->setCurrentItem(page);
        const std::pair<QTreeView *, SMemoryUse> sums[] = {
            {table("budgetAssets"), m_ramG[page->text(0)]},
            {table("budgetItems"), m_ramDl[page->text(0)]}};
        for (const auto &[view, use] : sums) {
            const int column = view->model()->columnCount() - 2;
            size_t sum = 0;
            qlonglong last = std::numeric_limits<qlonglong>::max();
            for (int row = 0; row < view->model()->rowCount(); ++row) {
                QVERIFY(number(view, row, column) <= last); // largest first
                last = number(view, row, column);
                sum += size_t(last);
            }
            QVERIFY(use.used > 0 || view == table("budgetAssets"));
            QCOMPARE(sum, use.used);
        }
        for (int column : {1, 2})
            QVERIFY(page->text(column).startsWith(QLocale().toString(
                qulonglong((column == 1 ? m_ramG : m_ramDl)[page->text(0)].used))));
    }
}

void tst_BudgetView::aClickSelects()
{
    open("coffee-machine");
    QTreeView *assets = table("budgetAssets");
    click(assets, 0);
    QStringList names;
    for (const CItemModel *item : qAsConst(m_wanted))
        names.append(item->name());
    QVERIFY(!names.isEmpty());
    QCOMPARE(assets->model()->index(0, 3).data().toString(), names.join(", "));
    QTreeView *items = table("budgetItems");
    m_view->findChild<QTabWidget *>()->setCurrentIndex(1);
    QTest::mouseClick(items->header()->viewport(), Qt::LeftButton, {},
                      QPoint(items->header()->sectionViewportPosition(0) + 20, 5));
    const QString before = items->model()->index(1, 0).data().toString(); // 0: the page itself
    click(items, 1);
    QCOMPARE(m_wanted.size(), 1);
    QCOMPARE(m_wanted.first()->name(), before);
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    m_wanted.first()->setProperty(QStringLiteral("name"), QStringLiteral("renamed"));
    QVERIFY(done.wait(10000)); // the chosen row stays chosen, wherever it is now
    QCOMPARE(items->currentIndex().siblingAtColumn(0).data().toString(), QString("renamed"));
}

void tst_BudgetView::whatIsGoneIsNotSelected()
{
    open("thermostat");
    QTreeView *items = table("budgetItems");
    m_view->findChild<QTabWidget *>()->setCurrentIndex(1);
    const int rows = items->model()->rowCount();
    m_project->removeRows(0, m_project->rowCount());
    QCOMPARE(items->model()->rowCount(), rows); // until it is drawn again
    click(items, 0);
    pages()->setCurrentItem(pages()->topLevelItem(1));
    QCOMPARE(m_wanted.size(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(items->model()->rowCount(), 0, 10000);
}

void tst_BudgetView::whatIfIsAdopted_data()
{
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<bool>("isAdopted");
    const auto file = [](const QDir &folder, const QString &name) {
        QVERIFY(QFile::remove(folder.filePath("coffee-machine/" + name)));
    };
    QTest::newRow("on two pages, one in a group")
        << Prepare([](const auto &, const auto &) {}) << true;
    QTest::newRow("one that is not drawn") << Prepare([](const auto &items, const auto &) {
        items.last()->setProperty(PropertyKey::X, -500);
    }) << true;
    QTest::newRow("the file was moved away after another conversion")
        << Prepare([file](const auto &, const QDir &folder) {
               const QString made =
                   folder.filePath("coffee-machine/coffee-machine_ConvertedImages");
               QVERIFY(QFile::rename(folder.filePath("coffee-machine/images/cappuccino.png"),
                                     made + "/cappuccino.png"));
           })
        << true;
    QTest::newRow("locked by a group") << Prepare([](const auto &items, const auto &) {
        items.first()->parentItem()->setLocked(true);
    }) << false;
    QTest::newRow("the file has gone") << Prepare([file](const auto &, const QDir &folder) {
        file(folder, "images/cappuccino.png");
    }) << false;
}

void tst_BudgetView::whatIfIsAdopted()
{
    QFETCH(Prepare, prepare);
    QFETCH(bool, isAdopted);
    const QTemporaryDir folder;
    copyExample("coffee-machine", folder.path());
    open("coffee-machine", folder.path(), prepare);
    const auto saved = [this] { return m_project->saveToBytes(nullptr); };
    const QByteArray before = saved();
    QVERIFY(!before.isEmpty());
    const QHash<QString, SMemoryUse> ramG = m_ramG;
    chooseAsset("cappuccino_ARGB4.raw");
    QTreeView *formats = table("whatIfFormats");
    const auto cell = [formats](int row, int column) {
        return formats->model()->index(row, column).data().toString();
    };
    QTRY_VERIFY_WITH_TIMEOUT(!isAdopted || (!cell(0, 3).isEmpty() && !cell(9, 3).isEmpty()), 30000);
    int row = 0; // largest first
    while (row < formats->model()->rowCount() && cell(row, 0) != "PALETTED")
        ++row;
    click(formats, row);
    auto *use = m_view->findChild<QPushButton *>("useFormat");
    QCOMPARE(use->isEnabled(), isAdopted);
    if (!isAdopted)
        return;
    QCOMPARE(formats->model()->rowCount(), 10); // what this chip has
    QCOMPARE(number(formats, row, 1), 128 * 104 + 1024);
    QTimer::singleShot(0, this, [] {
        for (QWidget *each : QApplication::topLevelWidgets())
            if (auto *box = qobject_cast<QProgressDialog *>(each))
                box->cancel();
    });
    QTest::mouseClick(use, Qt::LeftButton);
    QCOMPARE(m_project->undoStack()->count(), 0);
    QVERIFY(use->isEnabled());
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    QTest::mouseClick(use, Qt::LeftButton);
    QCOMPARE(m_project->undoStack()->count(), 1);
    for (const CItemModel *item : users(*m_project))
        QCOMPARE(item->propertyText(PropertyKey::Format), QString("PALETTED"));
    QVERIFY(done.wait(20000));
    for (const QString &page : {QStringLiteral("Drinks"), QStringLiteral("Brewing")})
        if (page == "Drinks" || QTest::currentDataTag() != QByteArray("one that is not drawn"))
            QCOMPARE(m_ramG[page].used, ramG[page].used - (128 * 104 * 2 - 128 * 104 - 1024));
    const QByteArray after = saved();
    m_project->undoStack()->undo();
    QCOMPARE(saved(), before);
    QVERIFY(done.wait(20000));
    QCOMPARE(m_ramG["Drinks"].used, ramG["Drinks"].used);
    m_project->undoStack()->redo();
    QCOMPARE(saved(), after);
}

void tst_BudgetView::fitsIntoBudget_data()
{
    QTest::addColumn<QByteArray>("ofSky");
    QTest::addColumn<bool>("fits");
    QTest::newRow("on two pages") << QByteArray() << true;
    QTest::newRow("locked") << QByteArray(" locked=\"1\"") << false;
    QTest::newRow("no file is left") << QByteArray(" filename=\"gone.png\"") << false;
}

/// 400 x 400 texels: 320,000 bytes as they are, and the chip has 262,144.
void tst_BudgetView::fitsIntoBudget()
{
    QFETCH(QByteArray, ofSky);
    QFETCH(bool, fits);
    const QTemporaryDir folder;
    const QDir images(folder.filePath("p/p_ConvertedImages"));
    QVERIFY(images.mkpath("."));
    QImage picture(400, 400, QImage::Format_RGB32);
    for (int i = 0; i < 400 * 400; ++i)
        picture.setPixel(i % 400, i / 400, qRgb(i % 400 * 255 / 400, i / 400 * 255 / 400, 90));
    QVERIFY(picture.save(images.filePath(ofSky.contains("gone") ? "other.png" : "sky.png")));
    TestFiles::write(images.filePath("sky_RGB565.raw"), QByteArray(320000, '\x20'));
    const QByteArray sky =
        R"(<Kiv_Bitmap_T name="Sky" id="1" width="400" height="400" basename="sky" suffix="png" bfolder="p_ConvertedImages" format="RGB565" bwidth="400" bheight="400")" +
        ofSky + "/>";
    TestFiles::write(
        folder.filePath("p/p.nyx"),
        R"(<Kiv_Project_T project_name="p" platform="QX100" width="480" height="272"><Kiv_Screen_T name="Home">)" +
            sky + R"(</Kiv_Screen_T><Kiv_Screen_T name="Next"><Widget_Group_T name="Group">)" +
            sky +
            R"(</Widget_Group_T><Kiv_ImageButton_T name="Button" id="2" width="80" height="80" basename="sky" bfolder="p_ConvertedImages" format="RGB565" bwidth="400" bheight="400"/></Kiv_Screen_T></Kiv_Project_T>)");
    open("p", folder.path());
    const QByteArray before = m_project->saveToBytes(nullptr);
    m_view->findChild<QTabWidget *>()->setCurrentIndex(3);
    const auto button = [this](const char *name) { return m_view->findChild<QPushButton *>(name); };
    const auto *sum = m_view->findChild<QLabel *>("formatsSum");
    QTest::mouseClick(button("findFormats"), Qt::LeftButton);
    if (fits) {
        QTest::mouseClick(button("cancelFormats"), Qt::LeftButton);
        QVERIFY(sum->text().isEmpty());
        QTest::mouseClick(button("findFormats"), Qt::LeftButton);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!sum->text().isEmpty(), 30000);
    QTreeView *rows = table("fitFormats");
    QCOMPARE(rows->model()->rowCount(), fits ? 1 : 0);
    QCOMPARE(button("useFormats")->isEnabled(), fits);
    QCOMPARE(sum->text().contains("57.856"), !fits); // 320,000 - 262,144
    if (!fits)
        return;
    const QString fitting = sum->text();
    QTest::keyClick(rows, Qt::Key_Space); // the first row is chosen
    QVERIFY(sum->text().contains("57.856"));
    QVERIFY(!button("useFormats")->isEnabled());
    QTest::keyClick(rows, Qt::Key_Space);
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    QTest::mouseClick(button("useFormats"), Qt::LeftButton);
    QCOMPARE(m_project->undoStack()->count(), 1);
    QVERIFY(done.wait(20000));
    QVERIFY2(fitting.contains(QLocale().toString(qulonglong(m_ramG["Home"].used))),
             qPrintable(fitting));
    QCOMPARE(m_ramG["Next"].used, m_ramG["Home"].used);
    QCOMPARE(rows->model()->rowCount(), 0); // it follows: nothing is left to do
    m_project->undoStack()->undo();
    QCOMPARE(m_project->saveToBytes(nullptr), before);
    QTRY_COMPARE_WITH_TIMEOUT(rows->model()->rowCount(), 1, 20000);
    chooseAsset("sky_RGB565.raw");
    m_view.reset(); // while it is tried; what runs is ended
}

QTEST_MAIN(tst_BudgetView)
#include "tst_budgetview.moc"
