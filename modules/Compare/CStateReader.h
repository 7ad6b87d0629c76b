#pragma once

#include "SProjectState.h"

#include <deque>

class CProjectModel;

/// Takes the state of a project in pieces, so that a large one holds nobody up. Nothing may be
/// added to the project or removed from it in between; a value that changes is taken as before or
/// after.
class CStateReader
{
public:
    explicit CStateReader(const CProjectModel &project);

    /// Goes on for about so long. False while there is more.
    bool read(int milliseconds);
    ProjectState take() { return std::move(m_state); }

    static ProjectState read(const CProjectModel &project); ///< at once

private:
    struct STask
    {
        const CItemModel *item;
        SItemState *state;
    };
    void read(const STask &task);

    std::shared_ptr<SProjectState> m_state;
    std::deque<STask> m_tasks; ///< items whose values and children are still to be taken
};
