#include "CProjectViews.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace {
const QString File = QStringLiteral("file");
const QString Pages = QStringLiteral("pages");
const QString Current = QStringLiteral("current");
const QString Zoom = QStringLiteral("zoom");
const QString Selected = QStringLiteral("selected");
constexpr double MaxPlace = 100000; // pixels
constexpr int MaxRow = 100000;
constexpr int MaxPercent = 3000;

QJsonObject objectOf(const QString &text)
{
    return QJsonDocument::fromJson(text.left(CProjectViews::MaxTextLength).toUtf8()).object();
}

double placeOf(const QJsonValue &value)
{
    return std::clamp(value.toDouble(), -MaxPlace, MaxPlace); // no JSON holds what is no number
}

int number(const QJsonValue &value, int smallest, int largest, int otherwise)
{
    const int given = value.toInt(otherwise);
    return given >= smallest && given <= largest ? given : otherwise;
}

QString textOf(const QString &file, const SProjectView &view)
{
    QJsonArray pages;
    for (const SProjectView::SPage &each : view.pages)
        pages.append(QJsonArray{each.name, each.row, std::round(each.centre.x()),
                                std::round(each.centre.y())});
    QJsonArray selected;
    for (const quint32 each : view.selected)
        selected.append(double(each));
    const QJsonObject object{{File, file},
                             {Pages, pages},
                             {Current, view.current},
                             {Zoom, QJsonArray{view.zoomPercent, view.zoomType}},
                             {Selected, selected}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// Without what is furthest from the current page.
void dropAPage(SProjectView *view)
{
    const bool isFirst = view->current > view->pages.size() / 2;
    view->pages.remove(isFirst ? 0 : view->pages.size() - 1);
    view->current -= isFirst ? 1 : 0;
}
} // namespace

void CProjectViews::setTexts(const QStringList &texts)
{
    m_texts.clear();
    for (const QString &each : texts) {
        if (each.size() <= MaxTextLength && !objectOf(each).value(File).toString().isEmpty() &&
            m_texts.size() < MaxProjects)
            m_texts.append(each);
    }
}

std::optional<SProjectView> CProjectViews::find(const QString &file) const
{
    for (const QString &text : m_texts) {
        const QJsonObject object = objectOf(text);
        if (object.value(File).toString() != file)
            continue;
        SProjectView view;
        const QJsonArray pages = object.value(Pages).toArray();
        for (const QJsonValue &value : pages) {
            const QJsonArray page = value.toArray();
            if (!page.at(0).isString() || view.pages.size() >= MaxPages)
                continue;
            view.pages.append({page.at(0).toString(), number(page.at(1), 0, MaxRow, 0),
                               QPointF(placeOf(page.at(2)), placeOf(page.at(3)))});
        }
        view.current = number(object.value(Current), 0, view.pages.size() - 1, 0);
        const QJsonArray zoom = object.value(Zoom).toArray();
        view.zoomPercent = number(zoom.at(0), 1, MaxPercent, 100);
        view.zoomType = number(zoom.at(1), 0, 2, 0);
        const QJsonArray selected = object.value(Selected).toArray();
        for (const QJsonValue &value : selected) {
            const double id = value.toDouble(-1);
            if (id >= 0 && id <= 0xffffffffU && view.selected.size() < MaxSelected)
                view.selected.append(quint32(id));
        }
        return view;
    }
    return {};
}

void CProjectViews::remember(const QString &file, SProjectView view)
{
    const auto isOf = [&file](const QString &text) {
        return objectOf(text).value(File).toString() == file;
    };
    m_texts.erase(std::remove_if(m_texts.begin(), m_texts.end(), isOf), m_texts.end());
    view.selected.resize(std::min(view.selected.size(), MaxSelected));
    while (view.pages.size() > MaxPages)
        dropAPage(&view);
    QString text = textOf(file, view);
    while (text.size() > MaxTextLength && !view.pages.isEmpty()) {
        dropAPage(&view);
        text = textOf(file, view);
    }
    if (text.size() <= MaxTextLength)
        m_texts.prepend(text);
    m_texts = m_texts.mid(0, MaxProjects);
}

QStringList CProjectViews::lastFirst(QStringList files) const
{
    QStringList order;
    for (const QString &text : m_texts)
        order.append(objectOf(text).value(File).toString());
    const auto place = [&order](const QString &file) {
        const int at = order.indexOf(file);
        return at < 0 ? order.size() : at;
    };
    std::stable_sort(
        files.begin(), files.end(),
        [&place](const QString &left, const QString &right) { return place(left) < place(right); });
    return files;
}
