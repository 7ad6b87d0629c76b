#pragma once

#include "CExportedSize.h"
#include "CFrameRequest.h"

#include <QWidget>

class CItemModel;
class CRuler;
class CScreenModel;
class CScreenView;

/// The tab page of one screen: its view with rulers and scroll bars. Asks for the screen's frames
/// while it is to be seen, and shows them.
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

Q_SIGNALS:
    void renderErrors(CScreenModel *screen, const QString &errors);

private:
    void connectRuler(CRuler *ruler, Qt::Orientation orientation);
    void requestFrame();
    void beforeRequest();
    void showFrame(const QPixmap &frame, size_t displayList, size_t graphicsMemory);
    void showDisplayList(const QString &text, const QByteArray &bytes, const QString &errors);
    void updateRulers();
    void updateExtent();
    void showPointer(const QPoint &position);
    void hidePointer();

    CScreenView *m_view;
    CRuler *m_horizontalRuler;
    CRuler *m_verticalRuler;
    CFrameRequest m_request;
    CExportedSize m_exportedSize;
    QString m_errors; ///< last told
};
