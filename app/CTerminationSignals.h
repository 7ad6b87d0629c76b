#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns the signals that ask a program to end (SIGTERM, SIGHUP, SIGINT) into a Qt signal in the
/// event loop, where everything may be called. One for the process.
class CTerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit CTerminationSignals(QObject *parent = nullptr);
    ~CTerminationSignals() override;

Q_SIGNALS:
    void endWanted();

private:
    QSocketNotifier *m_notifier = nullptr;
};
