#pragma once

#include "CFrameRequest.h"

#include <QObject>
#include <QTimer>

class CScreenModel;

/// What a page takes up as every export draws it, for a canvas that leaves out what is hidden:
/// asked for when the emulator has nothing else to do, some time after the last wish.
class CExportedSize final : public QObject
{
    Q_OBJECT

public:
    explicit CExportedSize(QObject *parent = nullptr);

    /// The screen must be there until it is answered, or withdraw() be called.
    void askSoon(CScreenModel *screen);
    void withdraw();

Q_SIGNALS:
    void known(size_t displayList, size_t graphicsMemory); ///< bytes

private:
    void ask();

    CScreenModel *m_screen = nullptr; ///< not owned; null for none
    CFrameRequest m_request;
    QTimer m_rest;
};
