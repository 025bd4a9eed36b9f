#include "resources/ResourceManager.h"

#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "resources/BinaryResourceFile.h"
#include "resources/XmlResourceFile.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QResource>

namespace Hmi::Core {

namespace {

    // Each thread's copy of the lookup tables, with the generation it was taken at. Generations
    // are unique across manager instances, so a copy never outlives the manager it came from.
    struct LookupCache
    {
        quint64 generation = 0;
        std::shared_ptr<const std::array<ResourceFile::NodeTable, ResourceTypeCount>> tables;
    };
    thread_local LookupCache tLookupCache;

    QByteArray packageHash(const QString& aPackagePath)
    {
        QFile file(aPackagePath);
        QCryptographicHash hash(QCryptographicHash::Sha1);
        if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
            qWarning("Unable to compute hash for: %s", qUtf8Printable(aPackagePath));
            return {};
        }
        return hash.result();
    }

} // namespace

ResourceManager::ResourceManager(QQmlEngine* /*aEngine*/, QJSEngine* /*aScriptEngine*/)
{
}

ResourceManager::~ResourceManager()
{
    for (const auto& record : qAsConst(mRecords)) {
        QResource::unregisterResource(record->packagePath, record->root);
    }
}

bool ResourceManager::loadResource(const QString& aName)
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    if (const auto record = mRecords.value(aName)) {
        ++record->loadCount;
        return true;
    }
    if (aName.isEmpty()) {
        return false;
    }
    const QString root = QLatin1String(sRootPrefix) + QString::number(mRootCounter++);
    const QString packagePath = getPackageDirectory() + QLatin1Char('/') + aName;
    if (!QResource::registerResource(packagePath, root)) {
        return false;
    }
    auto record = QSharedPointer<ResourceRecord>::create();
    record->root = root;
    record->packagePath = packagePath;
    record->file = readDescription(packagePath, root);
    if (!record->file) {
        QResource::unregisterResource(packagePath, root);
        return false;
    }
    mRecords.insert(aName, record);
    mLoadOrder.append(aName);
    rebuildLookup();
    emit resourceChanged();
    return true;
}

QSharedPointer<const ResourceFile> ResourceManager::readDescription(
    const QString& aPackagePath, const QString& aRoot) const
{
    const QString base = QFileInfo(aPackagePath).baseName();
    const QString directory = QLatin1Char(':') + aRoot + QLatin1Char('/');
    const QString urlPrefix = QStringLiteral("qrc:") + aRoot + QLatin1Char('/');
    const QString datName = base + QStringLiteral(".dat");
    const QString xmlName = base + QStringLiteral(".xml");

    if (QFile::exists(directory + datName)) {
        auto binary = QSharedPointer<BinaryResourceFile>::create();
        if (!binary->loadFile(directory + datName, urlPrefix, QByteArray())) {
            qCritical("Unable to load resource metadata: %s", qUtf8Printable(datName));
            return {};
        }
        return binary;
    }
    if (!QFile::exists(directory + xmlName)) {
        qCritical("Resource not found: %s", qUtf8Printable(base));
        return {};
    }

    const QByteArray hash = packageHash(aPackagePath);
    const QString cachePath = QDir::cleanPath(getCacheDirectory() + QLatin1Char('/') + aPackagePath) + QStringLiteral(".cache");
    if (QFile::exists(cachePath)) {
        auto cached = QSharedPointer<BinaryResourceFile>::create();
        if (cached->loadFile(cachePath, urlPrefix, hash)) {
            return cached;
        }
    } else {
        QDir(QFileInfo(cachePath).absolutePath()).mkpath(QStringLiteral("."));
    }

    auto xml = QSharedPointer<XmlResourceFile>::create(urlPrefix);
    if (!xml->loadFile(directory + xmlName)) {
        qCritical("Unable to load resource metadata: %s", qUtf8Printable(xmlName));
        return {};
    }
    if (!BinaryResourceFile().saveFile(cachePath, hash, *xml)) {
        qWarning("Unable to save binary resource metadata: %s", qUtf8Printable(cachePath));
    }
    return xml;
}

bool ResourceManager::unloadResource(const QString& aName)
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    const auto record = mRecords.value(aName);
    if (!record) {
        return false;
    }
    if (record->loadCount > 1) {
        --record->loadCount;
        return true;
    }
    mRecords.remove(aName);
    if (mLoadOrder.removeOne(aName)) {
        rebuildLookup();
        emit resourceChanged();
    }
    return QResource::unregisterResource(record->packagePath, record->root);
}

QSharedPointer<const Node> ResourceManager::getNode(ResourceType aType, const QString& aName) const
{
    if (int(aType) < 0 || int(aType) >= ResourceTypeCount) {
        qWarning("ERROR: Trying to get node of an invalid <ResourceType>.");
        return {};
    }
    if (tLookupCache.generation != mGeneration.load(std::memory_order_acquire)) {
        std::lock_guard<std::recursive_mutex> lock(mMutex);
        tLookupCache.tables = mLookup;
        tLookupCache.generation = mGeneration.load(std::memory_order_relaxed);
    }
    const auto& tables = tLookupCache.tables;
    return tables ? (*tables)[size_t(aType)].value(aName) : nullptr;
}

void ResourceManager::setSearchOrder(const QStringList& aPackages)
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    if (mSearchOrder == aPackages) {
        return;
    }
    mSearchOrder = aPackages;
    rebuildLookup();
    // Bindings must follow a theme or mode switch even when it loaded and removed nothing.
    emit resourceChanged();
}

QStringList ResourceManager::getSearchOrder() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mSearchOrder;
}

void ResourceManager::rebuildLookup()
{
    QStringList order;
    for (const QString& name : qAsConst(mSearchOrder)) {
        if (mRecords.contains(name) && !order.contains(name)) {
            order.append(name);
        }
    }
    for (const QString& name : qAsConst(mLoadOrder)) {
        if (!order.contains(name)) {
            order.append(name);
        }
    }
    auto tables = std::make_shared<LookupTables>();
    for (int type = 0; type < ResourceTypeCount; ++type) {
        ResourceFile::NodeTable merged;
        // Lowest priority first, so that higher ones overwrite.
        for (auto it = order.crbegin(); it != order.crend(); ++it) {
            const ResourceFile::NodeTable& nodes = mRecords.value(*it)->file->getNodes(ResourceType(type));
            if (merged.isEmpty()) {
                merged = nodes;
                continue;
            }
            for (auto node = nodes.cbegin(); node != nodes.cend(); ++node) {
                merged.insert(node.key(), node.value());
            }
        }
        (*tables)[size_t(type)] = std::move(merged);
    }
    mLookup = std::move(tables);
    static std::atomic<quint64> sGenerations { 0 };
    mGeneration.store(++sGenerations, std::memory_order_release);
    // The changing thread lets go of the old nodes at once; others do on their next lookup.
    tLookupCache.tables = mLookup;
    tLookupCache.generation = mGeneration.load(std::memory_order_relaxed);
}

QStringList ResourceManager::getLoadedResources() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mLoadOrder;
}

int ResourceManager::getLoadCount(const QString& aName) const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    const auto record = mRecords.value(aName);
    return record ? record->loadCount : 0;
}

QSharedPointer<const ResourceFile> ResourceManager::getResourceFile(const QString& aName) const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    const auto record = mRecords.value(aName);
    return record ? record->file : nullptr;
}

QString ResourceManager::getPackageDirectory() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mPackageDirectory.isEmpty() ? HmiCoreGlobal::getInstance().configs()->getThemesPath() : mPackageDirectory;
}

void ResourceManager::setPackageDirectory(const QString& aDirectory)
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    mPackageDirectory = aDirectory;
}

QString ResourceManager::getCacheDirectory() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mCacheDirectory.isEmpty() ? HmiCoreGlobal::getInstance().configs()->getResourceCachePath()
                                     : mCacheDirectory;
}

void ResourceManager::setCacheDirectory(const QString& aDirectory)
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    mCacheDirectory = aDirectory;
}

} // namespace Hmi::Core
