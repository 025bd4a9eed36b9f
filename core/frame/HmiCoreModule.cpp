#include "frame/HmiCoreModule.h"

#include "frame/ApplicationViewPolicyBase.h"
#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/PerfEventPolicyBase.h"
#include "handles/HandleColor.h"
#include "handles/HandleColorMutable.h"
#include "handles/HandleColorResource.h"
#include "handles/HandleDefaultsResource.h"
#include "handles/HandleFontMutable.h"
#include "handles/HandleFontResource.h"
#include "handles/HandleImageMutable.h"
#include "handles/HandleImageResource.h"
#include "handles/HandleRectangleMutable.h"
#include "handles/HandleRectangleResource.h"
#include "handles/HandleShaderMutable.h"
#include "handles/HandleShaderResource.h"
#include "handles/HandleDefaults.h"
#include "handles/HandleFont.h"
#include "handles/HandleImage.h"
#include "handles/HandleRectangle.h"
#include "handles/HandleShader.h"
#include "handles/HandleText.h"
#include "language/HandleTextMutable.h"
#include "language/HandleTextResource.h"
#include "language/HandleTextWithParameters.h"
#include "language/LanguageManager.h"
#include "models/ObjectListModelBase.h"
#include "resources/HmiGradientStop.h"
#include "resources/ResourceImageProvider.h"
#include "resources/ResourceManager.h"
#include "resources/ThemeManager.h"
#include "resources/ThemePolicyBase.h"

#include <QDebug>
#include <QQmlEngine>
#include <QUrl>
#include <atomic>

namespace Hmi::Core {

namespace {

    constexpr const char* sUri = HmiCoreModule::sUri;
    constexpr int sMajor = HmiCoreModule::sVersionMajor;
    constexpr int sMinor = HmiCoreModule::sVersionMinor;

    template <typename T>
    void creatable(const char* aName)
    {
        qmlRegisterType<T>(sUri, sMajor, sMinor, aName);
    }

    template <typename T>
    void singleton(const char* aName)
    {
        qmlRegisterSingletonType<T>(sUri, sMajor, sMinor, aName,
            [](QQmlEngine* aEngine, QJSEngine* aScriptEngine) -> QObject* {
                return T::registerInstance(aEngine, aScriptEngine);
            });
    }

    void fileSingleton(const QUrl& aUrl, const char* aName)
    {
        if (aUrl.isRelative()) {
            qWarning("qmlRegisterSingletonType requires absolute URLs.");
            return;
        }
        qmlRegisterSingletonType(aUrl, sUri, sMajor, sMinor, aName);
    }

    template <typename T>
    void uncreatable(const char* aName)
    {
        qmlRegisterUncreatableType<T>(sUri, sMajor, sMinor, aName,
            QStringLiteral("Can't create ") + QLatin1String(aName) + QStringLiteral(" in QML"));
    }

} // namespace

void HmiCoreModule::registerTypes()
{
    static std::atomic<bool> sRegistered { false };
    if (sRegistered.exchange(true)) {
        return;
    }
    registerCreatableTypes();
    qRegisterMetaType<HmiCoreGlobal::ApplicationViewMode>("Hmi::Core::HmiCoreGlobal::ApplicationViewMode");
    registerSingletons();
    registerUncreatableTypes();
}

void HmiCoreModule::prepareEngine(QQmlEngine& aEngine)
{
    aEngine.addImportPath(QStringLiteral("qrc:///"));
    // Image requests may arrive on a loader thread, where singletons cannot be created.
    ResourceManager::getInstance();
    if (!aEngine.imageProvider(QLatin1String(ResourceImageProvider::sProviderId))) {
        aEngine.addImageProvider(QLatin1String(ResourceImageProvider::sProviderId), new ResourceImageProvider);
    }
}

// The order of the three lists below is the module's published order; the names commented out
// are part of that order but have no class yet.

void HmiCoreModule::registerCreatableTypes()
{
    // CacheManager, ButtonBase, CacheTask, FontMetrics, FpsCalculator
    creatable<HandleColor>("HandleColor");
    creatable<HandleColorMutable>("HandleColorMutable");
    creatable<HandleColorResource>("HandleColorResource");
    creatable<HandleDefaults>("HandleDefaults");
    creatable<HandleDefaultsResource>("HandleDefaultsResource");
    creatable<HandleFont>("HandleFont");
    creatable<HandleFontMutable>("HandleFontMutable");
    creatable<HandleFontResource>("HandleFontResource");
    creatable<HandleImage>("HandleImage");
    creatable<HandleImageMutable>("HandleImageMutable");
    creatable<HandleImageResource>("HandleImageResource");
    creatable<HandleRectangle>("HandleRectangle");
    creatable<HandleRectangleMutable>("HandleRectangleMutable");
    creatable<HandleRectangleResource>("HandleRectangleResource");
    creatable<HandleShader>("HandleShader");
    creatable<HandleShaderMutable>("HandleShaderMutable");
    creatable<HandleShaderResource>("HandleShaderResource");
    creatable<HandleText>("HandleText");
    creatable<HandleTextMutable>("HandleTextMutable");
    creatable<HandleTextResource>("HandleTextResource");
    creatable<HandleTextWithParameters>("HandleTextWithParameters");
    creatable<HmiGradientStop>("HmiGradientStop");
    // KeyboardAbstract, LinkHighlighter, PickerModel, QtObjectModel, QtObjectWithResources,
    // RearrangerPageModel, StringRegister, SuggestionsModel, TouchInputArea, ValidatorBool,
    // ValidatorHandleRectangle, ValidatorInt, ValidatorReal, ValidatorString
}

void HmiCoreModule::registerSingletons()
{
    // HighlightManager
    singleton<HmiCoreGlobal>("HmiCore");
    // KeyboardModelManager
    fileSingleton(QUrl(QStringLiteral("qrc:///Hmi/Core/ObjectFactory.qml")), "ObjectFactory");
    singleton<LanguageManager>("LanguageManager");
    // ProcessLauncher, RestrictedModeManager, SuggestionsManager,
    // StringRegistrationManager
    singleton<ThemeManager>("ThemeManager");
}

void HmiCoreModule::registerUncreatableTypes()
{
    uncreatable<ApplicationViewPolicyBase>("ApplicationViewPolicyBase");
    // Cacher, HighlightRequest, Highlighter
    uncreatable<HmiCoreConfigs>("HmiCoreConfigs");
    // KeyboardModel, KeyboardKeyData
    uncreatable<PerfEventPolicyBase>("PerfEventPolicyBase");
    // Restriction, StringRegistrationData
    uncreatable<ThemePolicyBase>("ThemePolicyBase");
    // TouchInputEvent, TouchInputGesture
    uncreatable<ObjectListModelBase>("ObjectListModelBase");
    // ObjectListSortFilterProxyModel, ObjectListSortFilterProxyConstModel
}

} // namespace Hmi::Core
