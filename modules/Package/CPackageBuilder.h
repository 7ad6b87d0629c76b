#pragma once

#include "SPackageContent.h"
#include "SScreenExport.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

/// What the package is made from; see CPackageBuilder.
struct SPackageSource
{
    QString project;  ///< name of the project
    QString platform; ///< name of the chip
    uint32_t chipCode = 0;
    QString folder; ///< the project's; files below it are named from there, others without folder
    QSize frame;    ///< pixels
    QList<SScreenExport> screens; ///< all of the project in their order, with memory and items
};

/// The files of a package.
struct SPackage
{
    QByteArray bin;      ///< panel.bin
    QByteArray header;   ///< panel.h
    QByteArray code;     ///< panel.c
    QByteArray manifest; ///< manifest.json
};

class CProjectModel;

SPackageSource packageSource(const CProjectModel &project, const QList<SScreenExport> &screens);
/// All four files into a folder or none; empty when done, otherwise the reason.
QString writePackageFiles(const QString &folder, const SPackage &package);

/// Makes the package that a firmware draws from, out of what the emulator drew.
/// A pure function of its source: equal screens give equal bytes. Needs no event loop and no GUI
/// thread; for large projects it takes a while.
class CPackageBuilder
{
    Q_DECLARE_TR_FUNCTIONS(CPackageBuilder)

public:
    /// False, and the reasons, a sentence each, when a screen does not fit into the chip or cannot
    /// be packed for another reason.
    bool build(const SPackageSource &source);

    const SPackage &package() const { return m_package; }
    const SPackageContent &content() const { return m_content; }
    const QStringList &problems() const { return m_problems; }

private:
    bool check(const SPackageSource &source);
    void checkMemory(const SScreenExport &screen);
    void addScreen(const SPackageSource &source, const SScreenExport &screen);
    size_t assetIndex(const SPackageSource &source, const SGraphicsMemory &memory,
                      const SGraphicsMemory::SAsset &asset);
    void nameAll();
    void plan();
    void relocate(size_t screen);

    SPackage m_package;
    SPackageContent m_content;
    QStringList m_problems;
    /// For each screen its assets where the emulator had them, and which of ours each is.
    struct SPlaced
    {
        SGraphicsMemory::SAsset asset;
        size_t index;
    };
    QList<QList<SPlaced>> m_placed;
};
