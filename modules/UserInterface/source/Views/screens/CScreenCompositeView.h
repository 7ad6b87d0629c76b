#pragma once

#include <QPixmap>
#include <QWidget>

#include <cstddef>
#include <cstdint>

class CItemModel;
class CRuler;
class CScreenModel;
class CScreenView;

/// The tab page of one screen: its view with rulers and scroll bars. Asks the emulator for the
/// screen's frames and takes the answers that carry itself as their observer.
class CScreenCompositeView final : public QWidget
{
    Q_OBJECT

public:
    explicit CScreenCompositeView(CScreenModel *screen, QWidget *parent = nullptr);
    ~CScreenCompositeView() override;

    CScreenView *view() const { return m_view; }
    CScreenModel *screen() const;
    const QString &errors() const { return m_errors; } ///< of the last render, a line each
    /// Lets go of the screen, which is about to go.
    void detach();

public Q_SLOTS:
    /// Asks for a frame with the next turn of the event loop; many calls are one request.
    void requestFrame();
    void emulatorFrameCallback(bool output, QPixmap buffer, uint32_t hsize, uint32_t vsize,
                               void *observer, size_t RAM_DL_Usage);
    void emulatorFrameDLCallback(QString dlTextBuffer, QByteArray dlBinBuffer, void *observer,
                                 size_t RAM_G_Usage, char *errorMessages);

Q_SIGNALS:
    void renderErrors(CScreenModel *screen, const QString &errors);

private:
    void render();
    void updateRulers();
    void updateExtent();
    void showPointer(const QPoint &position);
    void hidePointer();

    CScreenView *m_view;
    CRuler *m_horizontalRuler;
    CRuler *m_verticalRuler;
    bool m_frameRequested = false;
    size_t m_graphicsMemory = 0; ///< of the answer whose frame is still to come
    QString m_errors;            ///< last told
};
