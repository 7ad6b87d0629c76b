#include "FormatFit.h"

#include <algorithm>

namespace {

using namespace FormatFit;

/// The options worth taking, largest first: each smaller one loses more, and for each byte saved
/// not less than the one before.
QVector<int> hullOf(const SImage &image)
{
    const QVector<SOption> &options = image.options;
    QVector<int> order(options.size());
    for (int i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&options](int a, int b) {
        return options[a].loss != options[b].loss ? options[a].loss < options[b].loss
                                                  : options[a].bytes < options[b].bytes;
    });
    const auto slope = [&options](int from, int to) {
        return (options[to].loss - options[from].loss) /
               double(options[from].bytes - options[to].bytes);
    };
    QVector<int> hull;
    for (const int each : order) {
        if (!hull.isEmpty() && options[each].bytes >= options[hull.last()].bytes)
            continue; // not smaller, and not better
        while (hull.size() >= 2 &&
               slope(hull[hull.size() - 2], hull.last()) >= slope(hull.last(), each))
            hull.removeLast();
        hull.append(each);
    }
    return hull;
}

class CFit
{
public:
    CFit(const QVector<SImage> &images, const QVector<SScreen> &screens)
        : m_images(images), m_screens(screens), m_shownBy(images.size()), m_step(images.size(), 0)
    {
        for (const SImage &image : images)
            m_hulls.append(hullOf(image));
        for (int screen = 0; screen < screens.size(); ++screen) {
            size_t bytes = screens[screen].otherBytes;
            for (const int image : screens[screen].images) {
                bytes += option(image, 0).bytes;
                m_shownBy[image].append(screen);
            }
            m_bytes.append(bytes);
        }
    }

    SChoice run()
    {
        while (!fits() && goDown()) {
        }
        if (fits())
            goUp();
        SChoice choice;
        choice.fits = fits();
        for (int image = 0; image < m_images.size(); ++image)
            choice.options.append(m_hulls[image].value(m_step[image], 0));
        return choice;
    }

private:
    const SOption &option(int image, int step) const
    {
        return m_images[image].options[m_hulls[image][step]];
    }

    bool isOver(int screen) const { return m_bytes[screen] > m_screens[screen].budget; }

    bool fits() const
    {
        for (int screen = 0; screen < m_screens.size(); ++screen)
            if (isOver(screen))
                return false;
        return true;
    }

    /// The step that loses least for what it saves where that is needed; false when none saves.
    bool goDown()
    {
        int best = -1;
        double bestPrice = 0;
        for (int image = 0; image < m_images.size(); ++image) {
            if (m_step[image] + 1 >= m_hulls[image].size())
                continue;
            int helped = 0;
            for (const int screen : m_shownBy[image])
                if (isOver(screen))
                    ++helped;
            if (helped == 0)
                continue;
            const SOption &now = option(image, m_step[image]);
            const SOption &next = option(image, m_step[image] + 1);
            const double price = (next.loss - now.loss) / (double(now.bytes - next.bytes) * helped);
            if (best < 0 || price < bestPrice) {
                best = image;
                bestPrice = price;
            }
        }
        if (best >= 0)
            move(best, m_step[best] + 1);
        return best >= 0;
    }

    /// What was taken from an image before others made room is given back, the most loss first.
    void goUp()
    {
        QVector<int> order;
        for (int image = 0; image < m_images.size(); ++image)
            order.append(image);
        std::stable_sort(order.begin(), order.end(), [this](int a, int b) {
            return option(a, m_step[a]).loss > option(b, m_step[b]).loss;
        });
        for (const int image : qAsConst(order)) {
            while (m_step[image] > 0) {
                move(image, m_step[image] - 1);
                if (fits())
                    continue;
                move(image, m_step[image] + 1);
                break;
            }
        }
    }

    void move(int image, int step)
    {
        for (const int screen : m_shownBy[image])
            m_bytes[screen] =
                m_bytes[screen] - option(image, m_step[image]).bytes + option(image, step).bytes;
        m_step[image] = step;
    }

    const QVector<SImage> &m_images;
    const QVector<SScreen> &m_screens;
    QVector<QVector<int>> m_hulls;
    QVector<QVector<int>> m_shownBy; ///< screens of each image
    QVector<int> m_step;             ///< of each image, on its hull
    QVector<size_t> m_bytes;
};

} // namespace

namespace FormatFit {

SChoice choose(const QVector<SImage> &images, const QVector<SScreen> &screens)
{
    return CFit(images, screens).run();
}

} // namespace FormatFit
