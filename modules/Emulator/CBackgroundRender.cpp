#include "CBackgroundRender.h"

#include "CEmulatorAdapter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

CBackgroundRender::CBackgroundRender(CEmulatorAdapter *adapter, CProjectModel *project)
    : m_adapter(adapter)
{
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameDLCallback, this,
            &CBackgroundRender::takeDisplayList);
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundMemory, this,
            &CBackgroundRender::takeMemory);
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundCutTexts, this,
            [this](const QVector<quint32> &items, void *observer) {
                if (observer == &m_handler)
                    m_cutTexts = items;
            });
    connect(adapter, &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
            [this](bool, const argb8888 *buffer, uint32_t width, uint32_t height, void *observer,
                   size_t ramDl) { keepFrame(buffer, width, height, observer, ramDl); });

    // Waiting turns the event loop, so the screen or the whole project may go meanwhile.
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex &parent, int first, int last) {
                if (!parent.isValid() && first <= m_screen.row() && m_screen.row() <= last)
                    giveUp();
            });
    connect(project, &QAbstractItemModel::modelAboutToBeReset, this, &CBackgroundRender::giveUp);
    connect(project, &QObject::destroyed, this, &CBackgroundRender::giveUp);
}

CBackgroundRender::~CBackgroundRender()
{
    giveUp();
}

void CBackgroundRender::ask(const QPersistentModelIndex &screen)
{
    m_handler.resetData();
    m_hasFrame = false;
    m_frame = QImage();
    m_ramDl = 0;
    m_ramG = 0;
    m_errors.clear();
    m_memory = {};
    m_cutTexts.clear();
    m_screen = screen;

    const auto *project = qobject_cast<const CProjectModel *>(screen.model());
    m_iterator.setRoot(project->screen(screen.row()));
    m_adapter->renderBackground(&m_iterator, &m_handler);
}

void CBackgroundRender::giveUp()
{
    m_adapter->withdraw(&m_handler);
    Q_EMIT changed();
}

void CBackgroundRender::takeDisplayList(const QString &text, const QByteArray &bytes,
                                        void *observer, size_t ramG, char *errors)
{
    if (observer != &m_handler)
        return; // some other requester's, a thumbnail for instance
    m_handler.emulatorFrameDLCallback(text, bytes, observer, ramG, errors);
    m_ramG = ramG;
    m_errors = QString::fromUtf8(errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    Q_EMIT changed();
}

void CBackgroundRender::takeMemory(const SGraphicsMemory &memory, void *observer)
{
    if (observer == &m_handler)
        m_memory = memory;
}

void CBackgroundRender::keepFrame(const argb8888 *buffer, uint32_t width, uint32_t height,
                                  void *observer, size_t ramDl)
{
    if (observer != &m_handler)
        return;
    m_ramDl = ramDl;
    m_hasFrame = true;
    if (buffer) // the buffer is valid during the signal only
        m_frame = QImage(reinterpret_cast<const uchar *>(buffer), static_cast<int>(width),
                         static_cast<int>(height), static_cast<int>(width * sizeof(argb8888)),
                         QImage::Format_RGB32)
                      .copy();
    Q_EMIT changed();
}
