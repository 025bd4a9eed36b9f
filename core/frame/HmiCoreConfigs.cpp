#include "frame/HmiCoreConfigs.h"

#include "frame/ConfigManager.h"

#include <QCoreApplication>
#include <QDebug>
#include <QRegularExpression>

namespace Hmi::Core {

namespace {

    struct KeyInfo
    {
        const char* name;
        bool isPath;
    };

    // Indexed by HmiCoreConfigs::Key.
    constexpr KeyInfo sKeys[HmiCoreConfigs::KeyCount] = {
        { "HmiCore/AlphaChannelEnabled", false },
        { "HmiCore/FontFamilyDefault", false },
        { "HmiCore/GnuPrefix", true },
        { "HmiCore/GnuBindir", true },
        { "HmiCore/GnuLibdir", true },
        { "HmiCore/GnuLocalstatedir", true },
        { "HmiCore/GnuSysconfdir", true },
        { "HmiCore/GnuDatadir", true },
        { "HmiCore/KeyboardsPath", true },
        { "HmiCore/LanguagesPath", true },
        { "HmiCore/SuggestionsPath", true },
        { "HmiCore/ThemesPath", true },
        { "HmiCore/StringDatabaseName", true },
        { "HmiCore/ResourceCachePath", true },
        { "HmiCore/HighlightSystemEnabled", false },
        { "HmiCore/IntervalPressAndHold", false },
        { "HmiCore/ItemIdentifierEnabled", false },
        { "HmiCore/PrimaryDisplayIndex", false },
        { "HmiCore/SecondaryDisplayIndex", false },
        { "HmiCore/PrimaryDisplayResolution", false },
        { "HmiCore/SecondaryDisplayResolution", false },
        { "HmiCore/SuggestionsUserWordsLimit", false },
        { "HmiCore/TouchDragStartDistance", false },
        { "HmiCore/UseSecondaryDisplay", false },
        { "HmiCore/WindowState", false },
        { "HmiCore/WindowStaysOnTopHint", false },
    };

    // The configured value of a base key when a file set it, else the base key's own default.
    QString baseValue(const ConfigManager& aConfig, HmiCoreConfigs::Key aKey)
    {
        const QString name = HmiCoreConfigs::getKeyName(aKey);
        const QVariant configured = aConfig.getConfigValue(name, true);
        return (configured.isValid() ? configured : aConfig.getConfig(name, false)).toString();
    }

    // QSettings splits values with commas into lists; the typed getters want the text back.
    QString toText(const QVariant& aValue)
    {
        if (aValue.userType() == QMetaType::QStringList) {
            return aValue.toStringList().join(QLatin1Char(','));
        }
        return aValue.toString();
    }

} // namespace

HmiCoreConfigs::HmiCoreConfigs(QObject* aParent)
    : QObject(aParent)
{
    qRegisterMetaType<QList<QSize>>();
    installDefaults();
}

QString HmiCoreConfigs::getKeyName(Key aKey)
{
    return QString::fromLatin1(sKeys[aKey].name);
}

bool HmiCoreConfigs::isPathKey(Key aKey)
{
    return sKeys[aKey].isPath;
}

void HmiCoreConfigs::installDefaults()
{
    ConfigManager& config = ConfigManager::getInstance();
    auto set = [&config](Key aKey, const QVariant& aDefault) {
        config.setDefault(getKeyName(aKey), aDefault, isPathKey(aKey));
    };

    set(GnuPrefix, QStringLiteral("usr/local"));
    const QString prefix = baseValue(config, GnuPrefix);
    set(GnuBindir, QString(prefix + QStringLiteral("/bin")));
    set(GnuLibdir, QString(prefix + QStringLiteral("/lib")));
    set(GnuLocalstatedir, QString(prefix + QStringLiteral("/var")));
    set(GnuSysconfdir, QString(prefix + QStringLiteral("/etc")));
    set(GnuDatadir, QString(prefix + QStringLiteral("/share")));

    const QString app = QCoreApplication::applicationName();
    const QString dataApp = baseValue(config, GnuDatadir) + QLatin1Char('/') + app + QLatin1Char('/');
    set(KeyboardsPath, QString(dataApp + QStringLiteral("keyboards")));
    set(LanguagesPath, QString(dataApp + QStringLiteral("languages")));
    set(SuggestionsPath, QString(dataApp + QStringLiteral("suggestions")));
    set(ThemesPath, QString(dataApp + QStringLiteral("themes")));

    const QString stateDir = baseValue(config, GnuLocalstatedir) + QLatin1Char('/');
    set(StringDatabaseName, QString(stateDir + app + QStringLiteral("_strings.db")));
    set(ResourceCachePath, QString(stateDir + app + QStringLiteral("/resource_cache/")));

    set(AlphaChannelEnabled, false);
    set(FontFamilyDefault, QStringLiteral("Open Sans"));
    set(HighlightSystemEnabled, false);
    set(IntervalPressAndHold, 800);
    set(ItemIdentifierEnabled, false);
    set(PrimaryDisplayIndex, 0);
    set(SecondaryDisplayIndex, 1);
    set(PrimaryDisplayResolution, QString());
    set(SecondaryDisplayResolution, QString());
    set(SuggestionsUserWordsLimit, 2000u);
    set(TouchDragStartDistance, 10);
    set(UseSecondaryDisplay, false);
    set(WindowState, QStringLiteral("WindowNoState"));
    set(WindowStaysOnTopHint, false);
}

QVariant HmiCoreConfigs::getValue(Key aKey) const
{
    std::lock_guard<std::mutex> lock(mCacheLock);
    QVariant& slot = mCache[aKey];
    if (!slot.isValid()) {
        slot = convert(aKey, ConfigManager::getInstance().getConfig(getKeyName(aKey), true));
    }
    return slot;
}

QVariant HmiCoreConfigs::convert(Key aKey, const QVariant& aRaw) const
{
    switch (aKey) {
    case AlphaChannelEnabled:
    case HighlightSystemEnabled:
    case ItemIdentifierEnabled:
    case UseSecondaryDisplay:
    case WindowStaysOnTopHint:
        return aRaw.toBool();
    case IntervalPressAndHold:
    case PrimaryDisplayIndex:
    case SecondaryDisplayIndex:
    case TouchDragStartDistance:
        return aRaw.toInt();
    case SuggestionsUserWordsLimit:
        return aRaw.toUInt();
    case PrimaryDisplayResolution:
    case SecondaryDisplayResolution:
        return QVariant::fromValue(parseResolutionList(toText(aRaw), getKeyName(aKey)));
    case WindowState:
        return parseWindowState(toText(aRaw));
    default:
        return toText(aRaw);
    }
}

QList<QSize> HmiCoreConfigs::parseResolutionList(const QString& aText, const QString& aKey)
{
    QList<QSize> sizes;
    static const QRegularExpression sBlanks(QStringLiteral("\\s+"));
    const QStringList parts = aText.split(sBlanks, Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const QStringList pieces = part.split(QLatin1Char('x'), Qt::SkipEmptyParts);
        bool widthOk = false;
        bool heightOk = false;
        if (pieces.size() == 2) {
            const int width = pieces.at(0).toInt(&widthOk, 10);
            const int height = pieces.at(1).toInt(&heightOk, 10);
            if (widthOk && heightOk) {
                sizes.append(QSize(width, height));
                continue;
            }
        }
        qWarning("Invalid resolution \"%s\" listed for %s\n", qUtf8Printable(part), qUtf8Printable(aKey));
        break;
    }
    return sizes;
}

int HmiCoreConfigs::parseWindowState(const QString& aText)
{
    if (aText == QLatin1String("WindowNoState")) {
        return Qt::WindowNoState;
    }
    if (aText == QLatin1String("WindowMinimized")) {
        return Qt::WindowMinimized;
    }
    if (aText == QLatin1String("WindowMaximized")) {
        return Qt::WindowMaximized;
    }
    if (aText == QLatin1String("WindowFullScreen")) {
        return Qt::WindowFullScreen;
    }
    qWarning("WARNING: Invalid value for WindowState config. Defaulting to WindowNoState.");
    return Qt::WindowNoState;
}

bool HmiCoreConfigs::getAlphaChannelEnabled() const { return getValue(AlphaChannelEnabled).toBool(); }
QString HmiCoreConfigs::getFontFamilyDefault() const { return getValue(FontFamilyDefault).toString(); }
QString HmiCoreConfigs::getGnuPrefix() const { return getValue(GnuPrefix).toString(); }
QString HmiCoreConfigs::getGnuBindir() const { return getValue(GnuBindir).toString(); }
QString HmiCoreConfigs::getGnuLibdir() const { return getValue(GnuLibdir).toString(); }
QString HmiCoreConfigs::getGnuLocalstatedir() const { return getValue(GnuLocalstatedir).toString(); }
QString HmiCoreConfigs::getGnuSysconfdir() const { return getValue(GnuSysconfdir).toString(); }
QString HmiCoreConfigs::getGnuDatadir() const { return getValue(GnuDatadir).toString(); }
QString HmiCoreConfigs::getKeyboardsPath() const { return getValue(KeyboardsPath).toString(); }
QString HmiCoreConfigs::getLanguagesPath() const { return getValue(LanguagesPath).toString(); }
QString HmiCoreConfigs::getSuggestionsPath() const { return getValue(SuggestionsPath).toString(); }
QString HmiCoreConfigs::getThemesPath() const { return getValue(ThemesPath).toString(); }
QString HmiCoreConfigs::getStringDatabaseName() const { return getValue(StringDatabaseName).toString(); }
QString HmiCoreConfigs::getResourceCachePath() const { return getValue(ResourceCachePath).toString(); }
bool HmiCoreConfigs::getHighlightSystemEnabled() const { return getValue(HighlightSystemEnabled).toBool(); }
int HmiCoreConfigs::getIntervalPressAndHold() const { return getValue(IntervalPressAndHold).toInt(); }
bool HmiCoreConfigs::getItemIdentifierEnabled() const { return getValue(ItemIdentifierEnabled).toBool(); }
int HmiCoreConfigs::getPrimaryDisplayIndex() const { return getValue(PrimaryDisplayIndex).toInt(); }
int HmiCoreConfigs::getSecondaryDisplayIndex() const { return getValue(SecondaryDisplayIndex).toInt(); }
QList<QSize> HmiCoreConfigs::getPrimaryDisplayResolution() const
{
    return getValue(PrimaryDisplayResolution).value<QList<QSize>>();
}
QList<QSize> HmiCoreConfigs::getSecondaryDisplayResolution() const
{
    return getValue(SecondaryDisplayResolution).value<QList<QSize>>();
}
uint HmiCoreConfigs::getSuggestionsUserWordsLimit() const { return getValue(SuggestionsUserWordsLimit).toUInt(); }
int HmiCoreConfigs::getTouchDragStartDistance() const { return getValue(TouchDragStartDistance).toInt(); }
bool HmiCoreConfigs::getUseSecondaryDisplay() const { return getValue(UseSecondaryDisplay).toBool(); }
int HmiCoreConfigs::getWindowState() const { return getValue(WindowState).toInt(); }
bool HmiCoreConfigs::getWindowStaysOnTopHint() const { return getValue(WindowStaysOnTopHint).toBool(); }

} // namespace Hmi::Core
