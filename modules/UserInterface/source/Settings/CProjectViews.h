#pragma once

#include <QPointF>
#include <QStringList>
#include <QVector>

#include <optional>

/// How a project was seen when it was closed.
struct SProjectView
{
    struct SPage
    {
        QString name;
        int row = 0;    ///< of the page in the project; names need not differ
        QPointF centre; ///< that was in the middle of the view, pixels of the page
    };

    QVector<SPage> pages; ///< that were open, in the order of their tabs
    int current = 0;      ///< index into them
    int zoomPercent = 100;
    int zoomType = 0;          ///< as CZoomComboWidget::Type
    QVector<quint32> selected; ///< ids of items of the current page
};

/// How the projects that were closed last were seen, as texts of the settings: one line of JSON for
/// each. Texts may be anything; what makes no sense is passed over.
class CProjectViews
{
public:
    static constexpr int MaxProjects = 20;
    static constexpr int MaxPages = 40;
    static constexpr int MaxSelected = 200;
    static constexpr int MaxTextLength = 4000; ///< of one; of longer ones pages are left out

    void setTexts(const QStringList &texts);
    QStringList texts() const { return m_texts; }

    /// Nothing when it is not known. `file`: absolute.
    std::optional<SProjectView> find(const QString &file) const;
    void remember(const QString &file, SProjectView view);
    /// Of these files those that are known first, the one that was closed last at the front.
    QStringList lastFirst(QStringList files) const;

private:
    QStringList m_texts; ///< the last one first
};
