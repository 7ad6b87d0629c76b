#include "FormatFit.h"

#include <QRandomGenerator>
#include <QtTest>

/// Formats that fit, against all that could have been chosen.
class tst_Budget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fits_data();
    void fits();
    void nothingFits();
};

namespace {

using namespace FormatFit;

struct SBest
{
    bool exists = false;
    double loss = 0;
};

double lossOf(const QVector<SImage> &images, const QVector<int> &options)
{
    double loss = 0;
    for (int i = 0; i < images.size(); ++i)
        loss += images[i].options[options[i]].loss;
    return loss;
}

bool areWithin(const QVector<SImage> &images, const QVector<SScreen> &screens,
               const QVector<int> &options)
{
    for (const SScreen &screen : screens) {
        size_t bytes = screen.otherBytes;
        for (const int image : screen.images)
            bytes += images[image].options[options[image]].bytes;
        if (bytes > screen.budget)
            return false;
    }
    return true;
}

/// Tries all.
SBest best(const QVector<SImage> &images, const QVector<SScreen> &screens)
{
    SBest result;
    QVector<int> options(images.size(), 0);
    for (;;) {
        const double loss = lossOf(images, options);
        if (areWithin(images, screens, options) && (!result.exists || loss < result.loss))
            result = {true, loss};
        int i = 0;
        while (i < images.size() && ++options[i] == images[i].options.size())
            options[i++] = 0;
        if (i == images.size())
            return result;
    }
}

} // namespace

void tst_Budget::fits_data()
{
    QTest::addColumn<int>("screenCount");
    QTest::newRow("one screen") << 1;
    QTest::newRow("three screens that share images") << 3;
}

void tst_Budget::fits()
{
    QFETCH(int, screenCount);
    QRandomGenerator random(20);
    int compared = 0;
    double sum = 0;
    double bestSum = 0;
    for (int round = 0; round < 200; ++round) {
        QVector<SImage> images(5);
        for (SImage &image : images)
            for (int i = 0; i < 4; ++i)
                image.options.append(
                    {size_t(random.bounded(10, 100)), double(random.bounded(0, 1000))});
        QVector<SScreen> screens(screenCount);
        for (SScreen &screen : screens) {
            for (int i = 0; i < images.size(); ++i)
                if (screenCount == 1 || random.bounded(2) == 0)
                    screen.images.append(i);
            screen.otherBytes = 20;
            screen.budget = size_t(random.bounded(120, 400));
        }
        const SChoice choice = choose(images, screens);
        const SBest reference = best(images, screens);
        QCOMPARE(choice.options.size(), images.size());
        QCOMPARE(choice.fits, areWithin(images, screens, choice.options));
        QCOMPARE(choice.fits, reference.exists); // nothing that fits is missed
        if (!choice.fits)
            continue;
        ++compared;
        sum += lossOf(images, choice.options);
        bestSum += reference.loss;
        QVERIFY(lossOf(images, choice.options) >= reference.loss);
    }
    QVERIFY(compared > 100);
    QVERIFY2(sum <= 1.25 * bestSum, qPrintable(QStringLiteral("%1").arg(sum / bestSum)));
    qInfo("%d cases, loss %.3f of the best", compared, sum / bestSum);
}

void tst_Budget::nothingFits()
{
    QVERIFY(choose({}, {{{}, 10, 20}}).fits);
    QVERIFY(!choose({}, {{{}, 30, 20}}).fits);
    QCOMPARE(choose({{{{50, 1}, {10, 5}}}}, {{{0}, 0, 5}}).options, QVector<int>{1});
}

QTEST_GUILESS_MAIN(tst_Budget)
#include "tst_budget.moc"
