#include "CBudgetResults.h"
#include "CBudgetView.h"
#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"

#include <QHeaderView>
#include <QLocale>
#include <QSignalSpy>
#include <QTreeView>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

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

private:
    void open(const QString &name);
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

void tst_BudgetView::open(const QString &name)
{
    const QString file =
        QStringLiteral("%1/examples/%2/%2.nyx").arg(qEnvironmentVariable("KIV_SOURCE_DIR"), name);
    m_project = std::make_unique<CProjectModel>();
    QString error;
    QVERIFY2(m_project->loadFromFile(file, &error), qPrintable(error));
    m_session = std::make_unique<CEmulatorSession>(CEmulatorAdapter::instance());
    m_session->open(m_project.get());
    m_results->setProject(m_project.get());
    m_rounds->setProject(m_project.get());
    QSignalSpy done(m_rounds.get(), &CScreenRounds::done);
    m_rounds->setWanted(this, true);
    QVERIFY(done.wait(20000));
    QCOMPARE(pages()->topLevelItemCount(), 1 + m_project->screenCount());
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

QTEST_MAIN(tst_BudgetView)
#include "tst_budgetview.moc"
