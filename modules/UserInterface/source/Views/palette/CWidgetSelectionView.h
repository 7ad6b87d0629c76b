#pragma once

#include <QListWidget>

class CToolboxModel;
class CWidgetLibraryModel;

/// The widget palette: the kinds of widget under the names of their groups, to be dragged onto a
/// screen. A drag carries the kind's type name as text and, streamed, under "widget-create".
class CWidgetSelectionView : public QListWidget
{
    Q_OBJECT

public:
    static constexpr int TypeRole = Qt::UserRole; ///< of an entry: its type name

    explicit CWidgetSelectionView(QWidget *parent = nullptr);

    /// Shows the entries of a toolbox with the tool tips of the library; both may be null. Neither
    /// is kept.
    void setToolbox(const CToolboxModel *toolbox, const CWidgetLibraryModel *library);
    /// The same with the toolbox and library of the first platform, which serve all platforms.
    void setToolbox(const CToolboxModel *toolbox);
    /// Shows only entries that have all words of the text in their name, type, group or tool tip,
    /// as these read in the library or in the language in force.
    void setFilter(const QString &text);

    /// What a drag of the current entry carries; null when it is not one. Owned by the caller.
    QMimeData *dragData() const;
    /// The picture that hangs at the pointer, and where in it the pointer is: with snapping on at
    /// its top left corner, where the widget will be placed.
    QPixmap dragPixmap() const;
    QPoint dragHotSpot() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void changeEvent(QEvent *event) override;
    QSize viewportSizeHint() const override;

private:
    void retranslate();
    void addHeader(const QString &text);
    void addEntry(const QModelIndex &row, const CWidgetLibraryModel *library, const QString &group);

    bool m_isNothingFound = false; ///< the filter hides every entry
};
