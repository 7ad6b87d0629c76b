#pragma once

#include "CModelIterator.h"
#include "QxKivEmuLib.h"
#include "SScreenExport.h"
#include "SaveRenderHandler.h"

#include <QImage>
#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPersistentModelIndex>
#include <QStringList>

#include <cstddef>
#include <utility>

class CEmulatorAdapter;
class CProjectModel;

/// Asks for background renders of screens, one after the other, and keeps the answer to the last.
/// Its requests never outlive it nor the screen: both withdraw them from the adapter.
class CBackgroundRender final : public QObject
{
    Q_OBJECT

public:
    CBackgroundRender(CEmulatorAdapter *adapter, CProjectModel *project);
    ~CBackgroundRender() override;

    /// Asks for the screen in a row of the project; what an earlier request brought is gone.
    void ask(const QPersistentModelIndex &screen);
    /// Gives up on a request that was not answered, so that a late answer is not taken for the
    /// answer to the next request.
    void giveUp();

    bool hasDisplayList() const { return m_handler.hasObtainedData(); }
    bool hasFrame() const { return m_hasFrame; }
    /// The display list in the forms in which it is exported.
    QString text() const { return m_handler.getScreenTextData(); }
    QByteArray bytes() const { return m_handler.getScreenByteData(); }
    QImage takeFrame() { return std::exchange(m_frame, {}); } ///< Format_RGB32
    size_t ramDl() const { return m_ramDl; }                  ///< bytes
    size_t ramG() const { return m_ramG; }                    ///< bytes
    QStringList errors() const { return m_errors; }
    SGraphicsMemory memory() const { return m_memory; }
    QVector<quint32> cutTexts() const { return m_cutTexts; }

Q_SIGNALS:
    /// A part of the answer is there, or it will not come any more.
    void changed();

private:
    void takeDisplayList(const QString &text, const QByteArray &bytes, void *observer, size_t ramG,
                         char *errors);
    void takeMemory(const SGraphicsMemory &memory, void *observer);
    void keepFrame(const argb8888 *buffer, uint32_t width, uint32_t height, void *observer,
                   size_t ramDl);

    CEmulatorAdapter *const m_adapter;
    CModelIterator m_iterator;
    SaveRenderHandler m_handler; ///< its address is the observer of all requests
    QPersistentModelIndex m_screen;
    bool m_hasFrame = false;
    QImage m_frame;
    size_t m_ramDl = 0;
    size_t m_ramG = 0;
    QStringList m_errors;
    SGraphicsMemory m_memory;
    QVector<quint32> m_cutTexts;
};
