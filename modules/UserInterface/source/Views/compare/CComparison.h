#pragma once

#include "PictureDifference.h"
#include "SProjectChanges.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QPersistentModelIndex>
#include <QTimer>

#include <functional>
#include <memory>

class CProjectModel;
class CScreenRounds;
struct SScreenExport;

/// An earlier version of the open project beside it: what changed from the one to the other, and
/// the pictures of both, which are drawn in the background while somebody wants to know.
class CComparison final : public QObject
{
    Q_OBJECT

public:
    static constexpr int IdleTime = 300; ///< milliseconds after a change of the open project

    explicit CComparison(QObject *parent = nullptr);
    ~CComparison() override;

    /// Asked before each step of drawing; true puts it off.
    void setBusy(const std::function<bool()> &isBusy);
    void setWanted(bool wanted);
    /// The open one, not owned; null for none. What was compared goes.
    void setProject(CProjectModel *project);
    /// The earlier version, as the bytes of its file. Its images are looked for where those of the
    /// open one lie; changed() follows. Empty, or why it cannot be; then all stays as it was.
    QString compareWith(const QByteArray &bytes, const QString &title);
    void clear();

    CProjectModel *project() const { return m_project; }
    const CProjectModel *earlier() const { return m_earlier.get(); } ///< null for none
    const QString &title() const { return m_title; }
    /// As of now; its pointers are good until the project is changed.
    SProjectChanges changes() const;
    /// Pages of the open project whose pictures are known to differ.
    QHash<QPersistentModelIndex, SPictureDifference> differences() const { return m_differences; }
    /// The page of the earlier project that is a page of the open one; invalid when there is none.
    QModelIndex earlierOf(const QPersistentModelIndex &page) const { return m_pairs.value(page); }
    /// Null while it is not drawn.
    QImage picture(const QPersistentModelIndex &page) const;
    /// Empty, or why the earlier version's pages are not drawn.
    QString whyNoPictures() const;

Q_SIGNALS:
    /// Of the changes, or all pictures are there.
    void changed();
    void pictureTaken();

private:
    struct SPacked
    {
        QSize size;
        QByteArray bytes;
    };

    void refresh();
    void pairPages();
    void startRounds();
    void take(const CProjectModel *project, const SScreenExport &drawn);
    void measure(const QPersistentModelIndex &page);

    CProjectModel *m_project = nullptr;
    std::unique_ptr<CProjectModel> m_earlier;
    QString m_title;
    bool m_isWanted = false;
    QTimer m_idle;
    CScreenRounds *const m_earlierRounds;
    CScreenRounds *const m_rounds;
    QHash<QPersistentModelIndex, QPersistentModelIndex> m_pairs; ///< earlier pages by open ones
    QHash<QPersistentModelIndex, SPacked> m_pictures;            ///< of both
    QHash<QPersistentModelIndex, SPictureDifference> m_differences;
};
