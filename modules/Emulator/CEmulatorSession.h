#pragma once

#include <functional>

class CEmulatorAdapter;
class CProjectModel;

/// How the emulator follows the open project: which chip it runs as and how large a frame is.
class CEmulatorSession
{
public:
    explicit CEmulatorSession(CEmulatorAdapter *adapter);

    /// Starts the emulator for a project that was opened or made.
    void open(CProjectModel *project);
    /// After a change of the project's platform or size: starts it anew only when the chip is
    /// another one. `stopped` is called in between, while nothing is in flight; true when it was.
    bool applyOptions(const CProjectModel *project, const std::function<void()> &stopped = {});
    /// Gives up what is in flight and starts with the same project again.
    void restart(const CProjectModel *project);
    void close();

private:
    void start(const CProjectModel *project);
    void configure(const CProjectModel *project);

    CEmulatorAdapter *const m_adapter;
};
