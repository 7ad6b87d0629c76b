#pragma once

/// Told when a command has changed the project's options. The main window implements it: it
/// restarts or reconfigures the emulator, shows the new title and hands the screen size to the
/// views.
class IProjectOptionsObserver
{
public:
    virtual ~IProjectOptionsObserver() = default;

    virtual void projectOptionsChanged() = 0;
};
