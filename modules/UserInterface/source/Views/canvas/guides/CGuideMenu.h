#pragma once

#include <QObject>
#include <QPointer>

class CScreenModel;
class QMenu;
class QWidget;

/// What a user can do to one guide without dragging it, and what he is asked for it.
class CGuideMenu final : public QObject
{
    Q_OBJECT

public:
    /// `parent`: of the dialogs.
    CGuideMenu(CScreenModel *screen, QWidget *parent);

    void fill(QMenu *menu, int index);
    /// Asks for the position of a guide.
    void askPosition(int index);
    void detach() { m_screen = nullptr; } ///< the screen is about to go

private:
    void fillColours(QMenu *menu, int index);
    void askColour(int index);
    bool isThere(int index) const;

    CScreenModel *m_screen; ///< not owned; null once detached
    QWidget *const m_parent;
};
