#include "handles/HandleColorResource.h"
#include "handles/HandleDefaultsResource.h"
#include "handles/HandleFontResource.h"
#include "handles/HandleImageResource.h"
#include "handles/HandleRectangleResource.h"
#include "handles/HandleShaderResource.h"
#include "resources/ResourceManager.h"

#include "common/MessageLog.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using namespace Hmi::Core;

namespace {

const QString sAlpha = QStringLiteral("alpha.rcc");
const QString sAlphaDay = QStringLiteral("alpha_day.rcc");

// Records every signal of a handle by name, in emission order, so that both the order and any
// extra or missing emission show.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    explicit SignalLog(QObject* aSource)
    {
        const QMetaObject* meta = aSource->metaObject();
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("record()"));
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal) {
                connect(aSource, meta->method(i), this, slot);
            }
        }
    }

    QStringList mNames;

public slots:
    void record()
    {
        mNames << QString::fromLatin1(sender()->metaObject()->method(senderSignalIndex()).name());
    }
};

using Factory = std::function<QObject*()>;

QStringList imageSignals()
{
    return { "defaultsNameChanged", "frameCountChanged", "frameSizeChanged", "implicitSizeChanged",
        "paddingExternalChanged", "paddingInternalChanged", "sourceChanged", "sourceSizeChanged",
        "tileMarginsChanged" };
}

} // namespace

Q_DECLARE_METATYPE(Factory)

class tst_Handles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(mCache.isValid());
        ResourceManager& resources = ResourceManager::getInstance();
        resources.setPackageDirectory(QStringLiteral(HMICORE_TEST_THEMES));
        resources.setCacheDirectory(mCache.path());
        resources.setSearchOrder({ sAlphaDay, sAlpha });
        cleanup();
    }

    void cleanup()
    {
        ResourceManager& resources = ResourceManager::getInstance();
        for (const QString& package : { sAlpha, sAlphaDay }) {
            while (resources.getLoadCount(package) > 1) {
                resources.unloadResource(package);
            }
            if (resources.getLoadCount(package) == 0) {
                QVERIFY(resources.loadResource(package));
            }
        }
    }

    void signalOrder_data()
    {
        QTest::addColumn<Factory>("factory");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("valueSignals");

        QTest::newRow("color") << Factory([] { return new HandleColorResource; }) << "background"
                               << QStringList { "colorChanged" };
        QTest::newRow("font") << Factory([] { return new HandleFontResource; }) << "title"
                              << QStringList { "fontChanged" };
        QTest::newRow("defaults") << Factory([] { return new HandleDefaultsResource; }) << "panelDefaults"
                                  << QStringList { "defaultsChanged" };
        QTest::newRow("shader") << Factory([] { return new HandleShaderResource; }) << "glow"
                                << QStringList { "defaultsNameChanged", "meshResolutionChanged",
                                       "shaderFragmentChanged", "shaderVertexChanged",
                                       "supportsAtlasTexturesChanged" };
        QTest::newRow("image") << Factory([] { return new HandleImageResource; }) << "dot" << imageSignals();
        QTest::newRow("rectangle") << Factory([] { return new HandleRectangleResource; }) << "panel"
                                   << imageSignals()
                + QStringList { "colorChanged", "borderColorChanged", "borderWidthChanged", "radiusChanged",
                      "gradientTypeChanged", "gradientAngleChanged", "gradientBeginChanged",
                      "gradientEndChanged", "gradientStopsChanged" };
    }

    void signalOrder()
    {
        QFETCH(Factory, factory);
        QFETCH(QString, name);
        QFETCH(QStringList, valueSignals);

        std::unique_ptr<QObject> handle(factory());
        SignalLog log(handle.get());
        QVERIFY(handle->setProperty("name", name));
        const QStringList expected = QStringList { "nameChanged", "nameExistsChanged" } + valueSignals;
        QCOMPARE(log.mNames, expected);
        QVERIFY(handle->property("nameExists").toBool());

        // A package change re-notifies everything but the name, once.
        log.mNames.clear();
        ResourceManager::getInstance().loadResource(QStringLiteral("beta.rcc"));
        QCOMPARE(log.mNames, QStringList { "nameExistsChanged" } + valueSignals);
        ResourceManager::getInstance().unloadResource(QStringLiteral("beta.rcc"));
    }

    void frozenHandleMissesUnload_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("package");
        QTest::addColumn<QColor>("before");
        QTest::addColumn<QColor>("after");

        // The day colour gives way to the theme's own background.
        QTest::newRow("falls back") << "background" << sAlphaDay << QColor(0x10, 0x20, 0x30)
                                    << QColor(1, 1, 1);
        QTest::newRow("goes missing")
            << "alphaOnly" << sAlpha << QColor(0x11, 0x22, 0x33, 0x44) << QColor(0, 0, 0, 0);
    }

    void frozenHandleMissesUnload()
    {
        QFETCH(QString, name);
        QFETCH(QString, package);
        QFETCH(QColor, before);
        QFETCH(QColor, after);

        ResourceManager& resources = ResourceManager::getInstance();
        HandleColorResource handle;
        handle.setName(name);
        QCOMPARE(handle.getColor(), before);
        QWeakPointer<const Node> node = resources.getNode(ResourceType::Color, name);

        handle.freeze();
        QSignalSpy colorSpy(&handle, &HandleColorResource::colorChanged);
        QSignalSpy existsSpy(&handle, &HandleColorResource::nameExistsChanged);
        QVERIFY(resources.unloadResource(package));
        QCOMPARE(colorSpy.count(), 0);
        QCOMPARE(existsSpy.count(), 0);
        // Frozen, the handle lets go of the node, so an unloaded package takes its nodes with it.
        QVERIFY(node.isNull());

        const QByteArray missing = "Handle name '" + name.toUtf8()
            + "' was not recognized. (Current Theme: \"\", Current Mode: \"\")";
        const bool exists = after.alpha() != 0;
        if (!exists) {
            QTest::ignoreMessage(QtCriticalMsg, missing.constData()); // unfreeze reads at once
            QTest::ignoreMessage(QtCriticalMsg, missing.constData()); // and getColor() again: not cached
        }
        handle.unfreeze();
        QCOMPARE(colorSpy.count(), 1);
        QCOMPARE(existsSpy.count(), 1);
        QCOMPARE(handle.getColor(), after);
        QCOMPARE(handle.getNameExists(), exists);

        // Unfrozen, it follows changes again.
        QVERIFY(resources.loadResource(package));
        QCOMPARE(colorSpy.count(), 2);
        QCOMPARE(handle.getColor(), before);
    }

    void unknownNameReportsEveryRead_data()
    {
        QTest::addColumn<Factory>("factory");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("reads");
        QTest::addColumn<int>("messages");

        const Factory color([] { return new HandleColorResource; });
        QTest::newRow("two reads") << color << "nope" << QStringList { "color", "color" } << 2;
        QTest::newRow("css read once") << color << "nope" << QStringList { "colorCss" } << 1;
        QTest::newRow("font css read once")
            << Factory([] { return new HandleFontResource; }) << "nope" << QStringList { "fontCss" } << 1;
        QTest::newRow("nameExists is quiet")
            << color << "nope" << QStringList { "nameExists", "nameExists" } << 0;
        QTest::newRow("no name is quiet")
            << color << "" << QStringList { "color", "colorCss", "nameExists" } << 0;
        QTest::newRow("known name") << color << "background" << QStringList { "color", "colorCss" } << 0;
    }

    void unknownNameReportsEveryRead()
    {
        QFETCH(Factory, factory);
        QFETCH(QString, name);
        QFETCH(QStringList, reads);
        QFETCH(int, messages);

        std::unique_ptr<QObject> handle(factory());
        handle->setProperty("name", name);
        const QString expected
            = QStringLiteral("Handle name '%1' was not recognized. (Current Theme: \"\", Current Mode: \"\")")
                  .arg(name);
        for (int i = 0; i < messages; ++i) {
            QTest::ignoreMessage(QtCriticalMsg, qPrintable(expected));
        }
        // The log tells a message that came once too often.
        const MessageLog log(QtCriticalMsg);
        for (const QString& property : qAsConst(reads)) {
            handle->property(property.toLatin1().constData());
        }
        QCOMPARE(log.getCount(), messages);
    }

private:
    QTemporaryDir mCache;
};

// Every test starts with Alpha's shared and day packages loaded once each.

QTEST_MAIN(tst_Handles)
#include "tst_handles.moc"
