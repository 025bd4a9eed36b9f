#pragma once

#include "frame/SingletonCpp.h"
#include "hmicore_export.h"
#include "resources/ResourceFile.h"

#include <QHash>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/**
 * Owns the loaded resource packages (".rcc" files holding one resource description and its
 * images) and answers node lookups for the whole process.
 *
 * Packages are reference-counted; an XML description is parsed once per package content and
 * kept as a binary cache keyed by the package's SHA-1. Lookups search the packages in the search
 * order (the current theme mode's, then the theme's), then any other loaded package, oldest first.
 * Every operation is safe from any thread.
 *
 * \code
 * auto& resources = ResourceManager::getInstance();
 * resources.loadResource(QStringLiteral("daylight.rcc"));
 * QSharedPointer<const NodeColor> background = resources.get<NodeColor>(QStringLiteral("background"));
 * \endcode
 */
class HMICORE_EXPORT ResourceManager final : public QObject, public SingletonCpp<ResourceManager>
{
    Q_OBJECT

public:
    struct ResourceRecord
    {
        QString root;
        QString packagePath;
        QSharedPointer<const ResourceFile> file;
        int loadCount = 1;
    };

    ResourceManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
    ~ResourceManager() override;
    Q_DISABLE_COPY(ResourceManager)

    /// Loads the package aName from the package directory, or counts one more load of it.
    bool loadResource(const QString& aName);
    /// Counts one load off; the package goes away with its last load.
    bool unloadResource(const QString& aName);

    /// The first node of aType called aName in search order, or null.
    QSharedPointer<const Node> getNode(ResourceType aType, const QString& aName) const;
    template <typename T>
    QSharedPointer<const T> get(const QString& aName) const
    {
        return getNode(T::sResourceType, aName).template staticCast<const T>();
    }

    /// Packages searched first, highest priority first; they need not be loaded yet.
    void setSearchOrder(const QStringList& aPackages);
    QStringList getSearchOrder() const;

    QStringList getLoadedResources() const;
    int getLoadCount(const QString& aName) const;
    QSharedPointer<const ResourceFile> getResourceFile(const QString& aName) const;

    /// Where package files are found; the configured themes directory unless set.
    QString getPackageDirectory() const;
    void setPackageDirectory(const QString& aDirectory);
    /// Where binary caches of XML descriptions go; the configured cache directory unless set.
    QString getCacheDirectory() const;
    void setCacheDirectory(const QString& aDirectory);

    /// The root prefix under which packages are registered with Qt's resource system.
    static constexpr const char* sRootPrefix = "/hmicore-package-";

signals:
    void resourceChanged();

private:
    QSharedPointer<const ResourceFile> readDescription(const QString& aPackagePath, const QString& aRoot) const;
    void rebuildLookup();

    mutable std::recursive_mutex mMutex;
    int mRootCounter = 0;
    QHash<QString, QSharedPointer<ResourceRecord>> mRecords;
    QStringList mLoadOrder;
    QStringList mSearchOrder;
    // One merged table per type, rebuilt whenever the packages or their order change, so that a
    // lookup is one hash probe whatever the number of packages. A rebuild replaces the whole
    // snapshot and bumps the generation; readers keep a per-thread copy of the snapshot and take
    // the lock only when the generation moved, so concurrent lookups do not contend.
    using LookupTables = std::array<ResourceFile::NodeTable, ResourceTypeCount>;
    std::shared_ptr<const LookupTables> mLookup;
    std::atomic<quint64> mGeneration { 0 };
    QString mPackageDirectory;
    QString mCacheDirectory;
};

} // namespace Hmi::Core
