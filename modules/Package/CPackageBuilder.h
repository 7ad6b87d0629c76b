#pragma once

#include "PackageFonts.h"
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

SPackageSource packageSource(const CProjectModel &project);
/// All four files into a folder or none; empty when done, otherwise the reason.
QString writePackageFiles(const QString &folder, const SPackage &package);

/// Makes the package that a firmware draws from, out of what the emulator drew. Of each screen that
/// was added it keeps words, items and assets, of these each one once, and no frame.
/// A pure function of what it is given: equal screens give equal bytes. Needs no event loop and no
/// GUI thread; finish() takes a while for large projects.
class CPackageBuilder
{
    Q_DECLARE_TR_FUNCTIONS(CPackageBuilder)

public:
    explicit CPackageBuilder(const SPackageSource &source);

    /// The project's next screen, with memory and items; its frame is not looked at.
    void add(const SScreenExport &screen);
    /// Once, after all screens. False, and the reasons, a sentence each, when a screen does not fit
    /// into the chip or cannot be packed for another reason.
    bool finish();

    const SPackage &package() const { return m_package; }
    const SPackageContent &content() const { return m_content; }
    const QStringList &problems() const { return m_problems; }

private:
    bool checkMemory(const SScreenExport &screen);
    void takeAssets(const SScreenExport &screen, SPackageScreen &result);
    size_t assetIndex(const SGraphicsMemory &memory, const SGraphicsMemory::SAsset &asset);
    void nameAll();
    void plan();
    void relocate(size_t screen);

    const QString m_folder;
    SPackage m_package;
    SPackageContent m_content;
    QStringList m_problems;
    QList<QList<SPlacedAsset>> m_placed; ///< of each screen
};
