#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

#include <utility>

/// For what would keep the GUI thread from its user: looking at files, and reading, scaling and
/// writing pictures.
namespace BackgroundWork {

/// Has `work()` done by a thread of the pool and then `done(result)` called on the GUI thread,
/// which is the caller's, unless `receiver` is gone by then. `work` must not touch what others
/// change; it is done to its end even when the program ends.
template<typename Work, typename Done>
void run(QObject *receiver, Work work, Done done)
{
    QCoreApplication *application = QCoreApplication::instance(); // waits for the pool at its end
    const QPointer<QObject> guard(receiver);
    QThreadPool::globalInstance()->start(
        [application, guard, work = std::move(work), done = std::move(done)] {
            auto deliver = [guard, done, result = work()] {
                if (guard)
                    done(result);
            };
            // Moved: what the result holds is given up by the GUI thread, never by this one.
            QMetaObject::invokeMethod(application, std::move(deliver), Qt::QueuedConnection);
        });
}

} // namespace BackgroundWork
