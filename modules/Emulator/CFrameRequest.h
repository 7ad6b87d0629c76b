#pragma once

#include "CModelIterator.h"

#include <QObject>
#include <QPixmap>

#include <cstddef>

class CScreenModel;

/// One requester's way to a frame of a screen that is shown, and to taking the wish back. Answers
/// to other requests are not told here; what was asked for is withdrawn when this object goes.
/// Of several wishes the last one counts. The screen must be there until it is answered, or
/// withdraw() be called.
class CFrameRequest final : public QObject
{
    Q_OBJECT

public:
    using EHidden = CModelIterator::EHidden;

    explicit CFrameRequest(QObject *parent = nullptr, EHidden hidden = EHidden::Walked);
    ~CFrameRequest() override;

    /// With the next turn of the event loop: the many changes of one step are one request.
    void askSoon(CScreenModel *screen);
    void ask(CScreenModel *screen);
    void withdraw();
    bool isDue() const { return m_due != nullptr; } ///< between askSoon() and the request
    /// Whether an answer can be expected.
    static bool isPossible();

Q_SIGNALS:
    void aboutToAsk(); ///< what askSoon() was called for; withdraw() still prevents it
    void displayListTaken(const QString &text, const QByteArray &bytes, const QString &errors);
    /// Ends the request. The frame is null when there is none; the rest are bytes.
    void frameTaken(const QPixmap &frame, size_t displayList, size_t graphicsMemory);

private:
    void askForDue();
    void takeDisplayList(const QString &text, const QByteArray &bytes, void *observer,
                         size_t graphicsMemory, const char *errors);
    void takeFrame(bool output, const QPixmap &frame, void *observer, size_t displayList);

    const EHidden m_hidden;
    CScreenModel *m_due = nullptr;
    bool m_isQueued = false;
    size_t m_graphicsMemory = 0; ///< of the answer whose frame is still to come
};
