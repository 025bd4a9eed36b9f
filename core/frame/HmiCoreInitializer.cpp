#include "frame/HmiCoreInitializer.h"

#include "frame/ConfigManager.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreModule.h"
#include "frame/PerfEventPolicyBase.h"
#include "language/LanguageManager.h"
#include "resources/ThemeManager.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

#include <atomic>

namespace Hmi::Core {

namespace {
    // Never cleared: once any configuration was read, configure() must not read the default file.
    std::atomic<bool> sConfigLoaded { false };
} // namespace

HmiCoreInitializer::HmiCoreInitializer(QSharedPointer<PerfEventPolicyBase> aPolicy)
    : mPolicy(std::move(aPolicy))
{
}

bool HmiCoreInitializer::isConfigLoaded()
{
    return sConfigLoaded.load();
}

void HmiCoreInitializer::configure(const QString& aConfigFile, const QHash<QString, QString>& aPlaceholders)
{
    loadConfig(aConfigFile, aPlaceholders);
    configure();
}

void HmiCoreInitializer::configure()
{
    HmiCoreModule::registerTypes();
    if (!sConfigLoaded.load()) {
        loadConfig(QString(), {});
    }
    raise("configureStart");

    HmiCoreGlobal& global = HmiCoreGlobal::getInstance();
    const HmiCoreConfigs* configs = global.configs();
    global.setPerformanceEventPolicy(mPolicy);

    if (configs->getAlphaChannelEnabled()) {
        QQuickWindow::setDefaultAlphaBuffer(true);
    }
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QStyleHints* hints = QGuiApplication::styleHints();
        hints->setStartDragDistance(configs->getTouchDragStartDistance());
        hints->setMousePressAndHoldInterval(configs->getIntervalPressAndHold());
    }
    global.setDefaultFont(QFont(configs->getFontFamilyDefault()));

    raise("configureEnd");
    raise("loadResourcesStart");

    raise("loadThemesStart");
    loadThemes(configs->getThemesPath());
    raise("loadThemesEnd");

    raise("loadLanguagesStart");
    LanguageManager::getInstance().setLanguagesPath(configs->getLanguagesPath());
    raise("loadLanguagesEnd");

    raise("loadKeyboardsStart");
    raise("loadKeyboardsEnd");

    raise("loadResourcesEnd");
}

void HmiCoreInitializer::loadConfig(const QString& aConfigFile, const QHash<QString, QString>& aPlaceholders)
{
    raise("loadConfigStart");
    const QString file = aConfigFile.isEmpty() ? QCoreApplication::applicationName() + QStringLiteral(".ini")
                                               : aConfigFile;
    ConfigManager& config = ConfigManager::getInstance();
    if (!aPlaceholders.isEmpty()) {
        config.setPlaceholders(aPlaceholders);
    }
    config.addConfig(file);
    sConfigLoaded.store(true);
    // The first use of the global object builds its configs, deriving defaults from what was just read.
    HmiCoreGlobal::getInstance().configs();
    raise("loadConfigEnd");
}

void HmiCoreInitializer::raise(const char* aMarker) const
{
    if (mPolicy) {
        mPolicy->raiseEvent(QStringLiteral("Hmi/Core/") + QLatin1String(aMarker));
    }
}

void HmiCoreInitializer::loadThemes(const QString& aThemesPath) const
{
    // Theme descriptions are the ".xml" files directly in the themes directory.
    const QDir directory(aThemesPath);
    const QStringList themeFiles = directory.entryList({ QStringLiteral("*.xml") }, QDir::Files, QDir::Name);
    ThemeManager& themes = ThemeManager::getInstance();
    for (const QString& name : themeFiles) {
        if (name.endsWith(QLatin1String(".xml"))) {
            themes.addTheme(directory.filePath(name));
        }
    }
    if (themes.getThemes().isEmpty()) {
        qWarning("WARNING: No hmi themes found in %s", qUtf8Printable(aThemesPath));
    }
}

} // namespace Hmi::Core
