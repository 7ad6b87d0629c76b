#pragma once

#include "SProjectChanges.h"
#include "SProjectState.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

class CPicturePairs;
class CProjectModel;
class CScreenRounds;
class CStateReader;
struct SScreenExport;

/// An earlier version of the open project beside it: what changed from the one to the other, and
/// the pictures of both. All is read, compared and drawn in the background, or in pieces of
/// PieceTime, while somebody wants to know; what is not wanted any more is given up.
class CComparison final : public QObject
{
    Q_OBJECT

public:
    static constexpr int IdleTime = 300; ///< milliseconds after a change of the open project
    static constexpr int PieceTime = 4;  ///< milliseconds

    struct SResult
    {
        ProjectState before;
        ProjectState after;
        SProjectChanges changes;
    };
    using Result = std::shared_ptr<const SResult>;

    explicit CComparison(QObject *parent = nullptr);
    ~CComparison() override;

    /// Asked before each step of drawing; true puts it off.
    void setBusy(const std::function<bool()> &isBusy);
    /// False gives up what is under way.
    void setWanted(bool wanted);
    bool isWanted() const { return m_isWanted; }
    /// The open one, not owned; null for none. What was compared goes.
    void setProject(CProjectModel *project);
    /// The earlier version, as the bytes of its file. Its images are looked for where those of the
    /// open one lie. Ends with changed(), or with failed(); then all stays as it was.
    void compareWith(const QByteArray &bytes, const QString &title);
    /// There is no earlier version to read: ends as one does that cannot be read.
    void refuse(const QString &reason);
    void clear();

    CProjectModel *project() const { return m_project; }
    const CProjectModel *earlier() const { return m_earlier.get(); } ///< null for none
    const QString &title() const { return m_title; }
    /// As of now; null while it is not known.
    const Result &result() const { return m_result; }
    bool isReading() const { return m_isReading; } ///< an earlier version
    /// Whether something is being read or compared.
    bool isWorking() const { return m_isReading || m_reader || m_stop || m_idle.isActive(); }
    CPicturePairs *pictures() const { return m_pictures; }
    /// Empty, or why the earlier version's pages are not drawn.
    QString whyNoPictures() const;
    /// That of the open project that a state was taken from; null when it is gone.
    CItemModel *itemOf(const SItemState *now) const;

Q_SIGNALS:
    void changed(); ///< something above
    void failed(const QString &reason);

private:
    using Stop = std::shared_ptr<std::atomic<bool>>;
    struct SEarlier;

    static SEarlier read(const QByteArray &bytes, const QString &folder, QThread *thread);
    void takeEarlier(const SEarlier &earlier, const QString &title);
    void giveUp();
    void refresh();
    void readOn();
    void compare(const ProjectState &now);
    void takeResult(const Result &result);
    void startRounds();
    void take(const SScreenExport &drawn);

    CProjectModel *m_project = nullptr;
    std::shared_ptr<CProjectModel> m_earlier;
    ProjectState m_before; ///< of the earlier one
    QString m_title;
    bool m_isWanted = false;
    std::function<bool()> m_isBusy;
    QTimer m_idle;
    int m_question = 0; ///< the answer to an earlier one does not count
    bool m_isReading = false;
    std::unique_ptr<CStateReader> m_reader; ///< while the open one is read
    QTimer m_step;
    Stop m_stop; ///< while the two are compared
    Result m_result;
    CScreenRounds *const m_earlierRounds;
    CScreenRounds *const m_rounds;
    CPicturePairs *const m_pictures;
};
