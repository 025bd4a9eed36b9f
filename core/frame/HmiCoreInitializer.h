#pragma once

#include "hmicore_export.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>

namespace Hmi::Core {

class PerfEventPolicyBase;

/**
 * The library's start-up, run once on the GUI thread before the application loads its QML.
 *
 * \code
 * QGuiApplication app(argc, argv);
 * Hmi::Core::HmiCoreInitializer initializer(QSharedPointer<MyProfilerPolicy>::create());
 * initializer.configure(QStringLiteral("/etc/myhmi.ini"), { { QStringLiteral("Variant"), QStringLiteral("eu") } });
 * QQmlApplicationEngine engine;
 * Hmi::Core::HmiCoreModule::prepareEngine(engine);
 * engine.load(QUrl(QStringLiteral("qrc:/main.qml")));
 * \endcode
 */
class HMICORE_EXPORT HmiCoreInitializer final
{
public:
    explicit HmiCoreInitializer(QSharedPointer<PerfEventPolicyBase> aPolicy = {});

    /// loadConfig(aConfigFile, aPlaceholders), then configure().
    void configure(const QString& aConfigFile, const QHash<QString, QString>& aPlaceholders);
    /// Registers the QML module, applies the configuration and loads themes, languages and keyboards.
    /// Reads "<application name>.ini" first when no configuration was loaded in this process.
    void configure();
    /// Reads one ini file (an empty name means "<application name>.ini" in the working directory).
    void loadConfig(const QString& aConfigFile, const QHash<QString, QString>& aPlaceholders);

    /// Whether any loadConfig() ran in this process.
    static bool isConfigLoaded();

private:
    void raise(const char* aMarker) const;
    void loadThemes(const QString& aThemesPath) const;

    QSharedPointer<PerfEventPolicyBase> mPolicy;
};

} // namespace Hmi::Core
