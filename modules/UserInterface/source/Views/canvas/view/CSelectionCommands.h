#pragma once

#include <QObject>
#include <QPointF>
#include <QVector>

#include <optional>

class CItemModel;
class CScreenModel;
class CScreenScene;
class QMenu;
class QUndoStack;

/// What a user does to the selected items of a canvas by menu, keys and clipboard: each function is
/// one step of undo, and does nothing where nothing is selected that it could act on.
class CSelectionCommands final : public QObject
{
    Q_OBJECT

public:
    /// The scene must outlive the commands.
    CSelectionCommands(CScreenScene *scene, QObject *parent);

    QVector<CItemModel *> selectedItems() const; ///< front first

    void copy();
    void cut();
    /// Into the group that was entered, or onto the page. Selects what was pasted.
    void paste();
    /// To where it was copied.
    void pasteInPlace();
    /// In the place of each selected item; selects what was pasted.
    void pasteToReplace();
    /// Selects the copies. Those of what was duplicated last lie as far from it as it lies now from
    /// what it is a copy of, so that a row grows evenly.
    void duplicate();
    void selectAll();
    void selectNone();
    void selectInverse();
    /// The item behind the selected one, after the rearmost the front one; null when the screen is
    /// empty.
    CItemModel *selectNext();
    /// Into the one selected group: its members are selected one by one from now on, the foremost
    /// at first.
    void enterGroup();
    /// The same, to the member at a place; false when there is none.
    bool enterGroupAt(const QPointF &scenePos);
    /// Out of the group again, which is selected then; false when the canvas is in none.
    bool leaveGroup();
    void toFront();
    void toBack();
    void forward();
    void backward();
    void group();
    void ungroup();
    /// Unlocks the items when all are locked, locks them otherwise.
    void toggleLock();
    void toggleHidden(); ///< the same with hiding
    /// Scene units; what is locked stays.
    void nudge(int dx, int dy);

    /// Moves items to where a drag has left them, in one step.
    void moveDragged(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions);
    /// The same as a part of a larger step: asks for each move.
    void moveAll(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions);
    /// Carries one move out.
    void move(CItemModel *item, const QPointF &newPosition);

    /// The entries of the context menu. Their names are those of the menu bar's
    /// actions, which have the keys.
    void addTo(QMenu *menu);

Q_SIGNALS:
    void moveWanted(CItemModel *item, QPointF oldPosition, QPointF newPosition);
    void message(const QString &text);

private:
    CScreenModel *screen() const;
    QVector<CItemModel *> choosable() const;
    CItemModel *enterable() const;
    void paste(std::optional<QPoint> by);
    QUndoStack &undoStack() const;

    CScreenScene *const m_scene;
    QVector<CItemModel *> m_copies; ///< that were made last, here or by a drag; only compared
    QPointF m_copiedFrom;           ///< the corner of what they are copies of
};
