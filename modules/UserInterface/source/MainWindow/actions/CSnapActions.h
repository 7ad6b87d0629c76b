#pragma once

#include "SnapKinds.h"

#include <QObject>

#include <array>

class QAction;
class QMenu;
struct SSettings;

/// The switches of snapping: all of it, and each kind. CEditorState holds what they set.
class CSnapActions final : public QObject
{
    Q_OBJECT

public:
    /// A menu of its own in `menu`, before the entry.
    CSnapActions(QMenu *menu, QAction *before, QObject *parent);

    QAction *snapping() const { return m_snapping; }
    QAction *action(ESnapKind kind) const;
    /// Sets all texts again in the language that is now in force.
    void retranslate();

    // What is remembered.
    static void use(const SSettings &settings);
    static void keep(SSettings &settings);

private:
    void set() const;
    void show();

    QMenu *m_menu;
    QAction *m_snapping;
    std::array<QAction *, std::size(EverySnapKind)> m_kinds{};
};
