#pragma once

#include "ScreenGuides.h"

#include <QCoreApplication>

class CScreenModel;

/// What a user does to the guides of a screen: each a step of its own, or none when nothing
/// changes.
class CGuideEdits
{
    Q_DECLARE_TR_FUNCTIONS(CGuideEdits)

public:
    /// The screen belongs to a project.
    explicit CGuideEdits(CScreenModel *screen) : m_screen(screen) {}

    /// The index of the guide; of the one that lies there already, if there is one. Negative when
    /// the screen has as many as it can have.
    int add(const SScreenGuide &guide) const;
    void move(int index, int position) const;
    void setLocked(int index, bool locked) const;
    void setColour(int index, const QColor &colour) const;
    void remove(int index) const;
    void clear() const;
    void setAllLocked(bool locked) const;

private:
    template<class Change>
    void change(int index, const QString &text, const Change &how) const;
    void push(const ScreenGuideList &guides, const QString &text) const;

    CScreenModel *const m_screen; ///< not owned
};
