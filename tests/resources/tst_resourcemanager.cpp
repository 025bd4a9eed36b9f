#include "resources/BinaryResourceFile.h"
#include "resources/NodeColor.h"
#include "resources/NodeImage.h"
#include "resources/ResourceManager.h"

#include "common/MessageLog.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Hmi::Core;

namespace {

const QString sPackageDir = QStringLiteral(HMICORE_TEST_PACKAGE_DIR);
const QColor sOceanBackground(0x00, 0x40, 0x80);
const QColor sMarker(0x12, 0x34, 0x56);
const QString sOcean = QStringLiteral("ocean.rcc");

QString packagePath(const QString& aPackage)
{
    return sPackageDir + QLatin1Char('/') + aPackage;
}

QByteArray sha1(const QString& aPath)
{
    QFile file(aPath);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}

QColor colorOf(const QString& aName)
{
    const auto node = ResourceManager::getInstance().get<NodeColor>(aName);
    return node ? node->getColor() : QColor();
}

QByteArray readAll(const QString& aPath)
{
    QFile file(aPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Qt lists the roots of registered packages as children of ":/".
int registeredPackages()
{
    return QDir(QStringLiteral(":/")).entryList({ QStringLiteral("hmicore-package-*") }).size();
}

// Writes a valid cache: aSource's nodes, if any, but "background" set to sMarker. A load that
// shows sMarker read the cache, not the package.
bool plantCache(const QString& aPath, const QByteArray& aHash, const ResourceFile* aSource)
{
    ResourceFile planted;
    for (int type = 0; aSource && type < ResourceTypeCount; ++type) {
        for (const auto& node : aSource->getNodes(ResourceType(type))) {
            planted.insertNode(ResourceType(type), node);
        }
    }
    auto marker = QSharedPointer<NodeColor>::create(QStringLiteral("background"));
    marker->setColor(sMarker);
    planted.insertNode(ResourceType::Color, marker);
    return QDir().mkpath(QFileInfo(aPath).path()) && BinaryResourceFile().saveFile(aPath, aHash, planted);
}

} // namespace

class tst_ResourceManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Set before anything reaches the configuration, which would otherwise supply both.
        ResourceManager::getInstance().setPackageDirectory(sPackageDir);
        QVERIFY(QFile::exists(packagePath(sOcean)));
    }

    void init()
    {
        mCache = std::make_unique<QTemporaryDir>();
        QVERIFY(mCache->isValid());
        ResourceManager::getInstance().setCacheDirectory(mCache->path());
    }

    void cleanup()
    {
        ResourceManager& resources = ResourceManager::getInstance();
        resources.setSearchOrder({});
        const QStringList loaded = resources.getLoadedResources();
        for (const QString& name : loaded) {
            while (resources.getLoadCount(name) > 0) {
                resources.unloadResource(name);
            }
        }
        QCOMPARE(registeredPackages(), 0);
    }

    void loadFailures_data()
    {
        QTest::addColumn<QString>("package");
        QTest::addColumn<QString>("warning");
        QTest::addColumn<QString>("critical");

        // clang-format off
        QTest::newRow("empty name") << QString() << QString() << QString();
        QTest::newRow("missing file") << "missing.rcc" << QString() << QString();
        QTest::newRow("not a package") << "garbage.rcc" << QString() << QString();
        // The description is looked up by the package's own base name, not by what it contains.
        QTest::newRow("description of another name") << "renamed.rcc" << QString() << "Resource not found: renamed";
        QTest::newRow("malformed description") << "broken.rcc" << "Opening and ending tag mismatch."
            << "Unable to load resource metadata: broken.xml";
        // clang-format on
    }

    void loadFailures()
    {
        QFETCH(QString, package);
        QFETCH(QString, warning);
        QFETCH(QString, critical);
        ResourceManager& resources = ResourceManager::getInstance();
        QSignalSpy changed(&resources, &ResourceManager::resourceChanged);

        if (!warning.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        }
        if (!critical.isEmpty()) {
            QTest::ignoreMessage(QtCriticalMsg, qPrintable(critical));
        }
        QVERIFY(!resources.loadResource(package));
        QCOMPARE(changed.count(), 0);
        QVERIFY(resources.getLoadedResources().isEmpty());
        QCOMPARE(registeredPackages(), 0);
        QCOMPARE(cacheFiles(), QStringList());
    }

    void loadCounting()
    {
        ResourceManager& resources = ResourceManager::getInstance();
        QSignalSpy changed(&resources, &ResourceManager::resourceChanged);
        QVERIFY(resources.loadResource(sOcean));
        QVERIFY(resources.loadResource(sOcean));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(resources.getLoadCount(sOcean), 2);
        QCOMPARE(registeredPackages(), 1);
        QVERIFY(!resources.get<NodeImage>(QStringLiteral("background")));

        QVERIFY(resources.unloadResource(sOcean));
        QCOMPARE(changed.count(), 1);
        const auto background = resources.get<NodeColor>(QStringLiteral("background"));
        const auto logo = resources.get<NodeImage>(QStringLiteral("logo"));
        QVERIFY(background && logo);
        const QUrl source = logo->getSource();

        QVERIFY(resources.unloadResource(sOcean));
        QCOMPARE(changed.count(), 2);
        QVERIFY(resources.getLoadedResources().isEmpty());
        QVERIFY(!resources.get<NodeColor>(QStringLiteral("background")));
        QCOMPARE(registeredPackages(), 0);
        // Nodes that a handle still holds stay whole after their package went away.
        QCOMPARE(background->getColor(), sOceanBackground);
        QCOMPARE(logo->getSource(), source);

        QVERIFY(!resources.unloadResource(sOcean));
        QVERIFY(!resources.unloadResource(QStringLiteral("never-loaded.rcc")));
        QCOMPARE(changed.count(), 2);
    }

    void cache_data()
    {
        QTest::addColumn<int>("keepBytes");
        QTest::addColumn<int>("flipByte");
        QTest::addColumn<QColor>("background");

        // A damaged cache is rebuilt from the package. Byte 12 is the first of the content hash.
        QTest::newRow("valid cache is read") << -1 << -1 << sMarker;
        QTest::newRow("written for other content") << -1 << 12 << sOceanBackground;
        QTest::newRow("truncated in the nodes") << 40 << -1 << sOceanBackground;
    }

    void cache()
    {
        QFETCH(int, keepBytes);
        QFETCH(int, flipByte);
        QFETCH(QColor, background);
        const QByteArray hash = sha1(packagePath(sOcean));
        ResourceManager& resources = ResourceManager::getInstance();
        QVERIFY(resources.loadResource(sOcean));
        QCOMPARE(cacheFiles(), QStringList { cachePath(sOcean) });
        const auto parsed = resources.getResourceFile(sOcean);
        QVERIFY(resources.unloadResource(sOcean));
        QVERIFY(plantCache(cachePath(sOcean), hash, parsed.data()));

        QFile file(cachePath(sOcean));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray planted = file.readAll();
        if (flipByte >= 0) {
            planted[flipByte] = char(planted.at(flipByte) ^ 0x01);
        }
        QVERIFY(file.resize(0) && file.write(keepBytes >= 0 ? planted.left(keepBytes) : planted) > 0);
        file.close();

        MessageLog warnings;
        QSignalSpy changed(&resources, &ResourceManager::resourceChanged);
        QVERIFY(resources.loadResource(sOcean));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(colorOf(QStringLiteral("background")), background);
        QCOMPARE(warnings.getCount(), 0);
        // Image names in the cache resolve against this load's root, not the first one's.
        const auto logo = resources.get<NodeImage>(QStringLiteral("logo"));
        QVERIFY(logo);
        QCOMPARE(QImage(NodeImage::toFilePath(logo->getSource())).size(), QSize(4, 4));

        // A valid cache is left alone; a damaged one is written afresh.
        BinaryResourceFile cached;
        QVERIFY(cached.loadFile(cachePath(sOcean), QString(), hash));
        QCOMPARE(cached.get<NodeColor>(QStringLiteral("background"))->getColor(), background);
    }

    void binaryPackageNeverCached_data()
    {
        QTest::addColumn<bool>("plantedCache");
        QTest::newRow("no cache") << false;
        QTest::newRow("cache file present") << true;
    }

    void binaryPackageNeverCached()
    {
        QFETCH(bool, plantedCache);
        const QString extras = QStringLiteral("extras.rcc");
        QByteArray planted;
        // Even a valid cache for the package's hash must lose against the packed description.
        if (plantedCache) {
            QVERIFY(plantCache(cachePath(extras), sha1(packagePath(extras)), nullptr));
            planted = readAll(cachePath(extras));
        }

        ResourceManager& resources = ResourceManager::getInstance();
        QVERIFY(resources.loadResource(extras));
        QCOMPARE(colorOf(QStringLiteral("background")), QColor(0xff, 0x00, 0xff));
        QCOMPARE(colorOf(QStringLiteral("extraOnly")), QColor(0x01, 0x02, 0x03));
        const auto logo = resources.get<NodeImage>(QStringLiteral("logo"));
        QVERIFY(logo);
        QCOMPARE(QImage(NodeImage::toFilePath(logo->getSource())).size(), QSize(4, 4));

        QCOMPARE(cacheFiles(), plantedCache ? QStringList { cachePath(extras) } : QStringList());
        QCOMPARE(readAll(cachePath(extras)), planted);
    }

    void searchOrder_data()
    {
        QTest::addColumn<QStringList>("order");
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QColor>("text");

        const QColor base = sOceanBackground;
        const QColor day(0xe0, 0xf0, 0xff);
        const QColor night(0x00, 0x10, 0x20);
        const QColor dayText(0x10, 0x10, 0x10);
        const QColor nightText(0xf0, 0xf0, 0xf0);
        // Packages were loaded as ocean, ocean_day, ocean_night.
        QTest::newRow("none: oldest first") << QStringList() << base << dayText;
        QTest::newRow("mode over theme")
            << QStringList { "ocean_night.rcc", "ocean.rcc" } << night << nightText;
        QTest::newRow("listed order, not load order")
            << QStringList { "ocean_day.rcc", "ocean_night.rcc", "ocean.rcc" } << day << dayText;
        QTest::newRow("names not loaded are skipped")
            << QStringList { "forest_night.rcc", "ocean_night.rcc", "missing.rcc" } << night << nightText;
    }

    void searchOrder()
    {
        QFETCH(QStringList, order);
        QFETCH(QColor, background);
        QFETCH(QColor, text);
        ResourceManager& resources = ResourceManager::getInstance();
        for (const char* package : { "ocean.rcc", "ocean_day.rcc", "ocean_night.rcc" }) {
            QVERIFY(resources.loadResource(QLatin1String(package)));
        }

        resources.setSearchOrder(order);
        QCOMPARE(colorOf(QStringLiteral("background")), background);
        QCOMPARE(colorOf(QStringLiteral("text")), text);
        // Names that only a lower package has still resolve.
        QCOMPARE(colorOf(QStringLiteral("accent")), QColor(0x00, 0x80, 0xc0));
    }

    void searchOrderAppliesToLaterLoads()
    {
        ResourceManager& resources = ResourceManager::getInstance();
        QSignalSpy changed(&resources, &ResourceManager::resourceChanged);
        const QStringList order { QStringLiteral("ocean_night.rcc"), QStringLiteral("ocean.rcc") };
        resources.setSearchOrder(order);
        resources.setSearchOrder(order);
        QCOMPARE(changed.count(), 1);

        QVERIFY(resources.loadResource(sOcean));
        QCOMPARE(colorOf(QStringLiteral("background")), sOceanBackground);
        QVERIFY(resources.loadResource(QStringLiteral("ocean_night.rcc")));
        QCOMPARE(colorOf(QStringLiteral("background")), QColor(0x00, 0x10, 0x20));
        QVERIFY(resources.unloadResource(QStringLiteral("ocean_night.rcc")));
        QCOMPARE(colorOf(QStringLiteral("background")), sOceanBackground);
        QCOMPARE(changed.count(), 4);
    }

private:
    QString cachePath(const QString& aPackage) const
    {
        return QDir::cleanPath(mCache->path() + QLatin1Char('/') + packagePath(aPackage))
            + QStringLiteral(".cache");
    }

    QStringList cacheFiles() const
    {
        QStringList files;
        QDirIterator it(mCache->path(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            files.append(it.next());
        }
        return files;
    }

    std::unique_ptr<QTemporaryDir> mCache;
};

QTEST_GUILESS_MAIN(tst_ResourceManager)
#include "tst_resourcemanager.moc"
