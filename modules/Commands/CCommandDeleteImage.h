#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QUndoCommand>
#include <QVector>

#include <functional>

class CProjectModel;

/// Deletes the files of a converted image that nothing shows, and writes them back on undo: the
/// steps before it may show the image again. Holds their bytes meanwhile.
/// Place:  goes with the project when that is saved elsewhere.
/// Errors: are told, since nobody is there to be answered. What could not be deleted stays, all of
///         it; what could not be written back is held on, and tried again the next time. No other
///         file that has got the name is replaced. One that deletes nothing when it is pushed is
///         no step.
/// Anew:   what was converted again under the name meanwhile belongs to a later step: it stays,
///         also when this one is redone.
class CCommandDeleteImage final : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(CCommandDeleteImage)

public:
    /// More than the largest image has that can be converted.
    static constexpr qint64 MostBytes = qint64{32} << 20;

    struct SCalls
    {
        /// Whether the project as it lies on the disk shows the file: then it stays, for the
        /// project may be closed without being saved.
        std::function<bool(const QString &file)> isSaved;
        /// After each try; with an empty text, or why nothing was deleted or written back.
        std::function<void(const QString &error)> tried;
    };

    /// `file`: absolute, the .raw file; what the image tools leave beside it goes too.
    CCommandDeleteImage(CProjectModel *project, const QString &file, const SCalls &calls);

    void redo() override;
    void undo() override;

    /// Empty, or why the file must stay. Looks at the disk.
    static QString whyNot(const CProjectModel &project, const QString &file, const SCalls &calls);

private:
    struct SFile
    {
        QString suffix;
        QByteArray bytes;
    };

    QString folder() const;
    QString remove();
    QString writeBack() const;
    void hold(const QVector<SFile> &files);

    CProjectModel *const m_project; ///< not owned
    const SCalls m_calls;
    const QString m_folder;  ///< as items call it
    const QString m_base;    ///< of the files, with the dot
    QVector<SFile> m_held;   ///< in the order of their removal
    bool m_isGone = false;   ///< deleted by this step
    bool m_isAnew = false;   ///< a later step has made the file anew
    bool m_isPushed = false; ///< has been done once
};
