#pragma once

#include "PaletteEntry.h"

#include <QListWidget>

#include <array>

class CToolboxModel;
class CWidgetLibraryModel;

/// The widget palette: the kinds of widget under the names of their groups, to be dragged onto a
/// screen. A drag carries the kind's type name as text and, streamed, under "widget-create".
/// Above the groups stand the favourites and what was used last, as soon as there are any.
class CWidgetSelectionView : public QListWidget
{
    Q_OBJECT

public:
    static constexpr int TypeRole = PaletteEntry::TypeRole;
    static constexpr int MostUsed = 6; ///< kinds that count as used last

    enum EShelf { Favourites, LastUsed, ShelfCount };

    explicit CWidgetSelectionView(QWidget *parent = nullptr);

    /// Shows the entries of a toolbox with the tool tips of the library; both may be null. Neither
    /// is kept.
    void setToolbox(const CToolboxModel *toolbox, const CWidgetLibraryModel *library);
    /// The same with the toolbox and library of the first platform, which serve all platforms.
    void setToolbox(const CToolboxModel *toolbox);
    /// Shows only entries that have all words of the text in their name, type, group or tool tip,
    /// as these read in the library or in the language in force; the best one first, with its
    /// group, and as the current one.
    void setFilter(const QString &text);

    /// Type names, the first one first; those that the toolbox lacks are kept, but not shown.
    const QStringList &shelf(EShelf which) const { return m_shelves.at(size_t(which)); }
    void setShelf(EShelf which, const QStringList &types);
    /// A widget of the kind was made: it was used last.
    void noteUsed(const QString &type);
    void setFavourite(const QString &type, bool isFavourite);

    /// Empty for a header and for none.
    QString currentType() const;
    /// Asks for a widget of the current entry, if there is one.
    void placeCurrent();

    /// What a drag of the current entry carries; null when it is not one. Owned by the caller.
    QMimeData *dragData() const;
    /// The picture that hangs at the pointer, and where in it the pointer is: with snapping on at
    /// its top left corner, where the widget will be placed.
    QPixmap dragPixmap() const;
    QPoint dragHotSpot() const;

Q_SIGNALS:
    void placeWanted(const QString &type); ///< without a drag

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    QSize viewportSizeHint() const override;

private:
    void retranslate();
    QListWidgetItem *makeHeader() const;
    void addEntry(const QModelIndex &row, const CWidgetLibraryModel *library, const QString &group);
    QListWidgetItem *entryOf(const QString &type) const;
    void fillShelves();
    void arrange(const QString &filter);
    QVector<QListWidgetItem *> sections() const;

    std::array<QStringList, ShelfCount> m_shelves;
    QString m_filter;
    bool m_isNothingFound = false; ///< the filter hides every entry
};
