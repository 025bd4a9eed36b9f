#include "resources/ThemeManager.h"

#include "resources/ResourceManager.h"
#include "resources/Theme.h"
#include "resources/ThemeMode.h"
#include "resources/ThemePolicyBase.h"

#include <QDebug>

namespace Hmi::Core {

ThemeManager::ThemeManager(QQmlEngine* /*aEngine*/, QJSEngine* /*aScriptEngine*/)
{
}

ThemeManager::~ThemeManager()
{
    // The resource manager may already be gone when singletons are torn down in reverse order.
    delete mPolicy.data();
}

bool ThemeManager::addTheme(const QString& aPath)
{
    Theme* theme = Theme::load(aPath, this);
    if (!theme) {
        return false;
    }
    bool first = false;
    {
        std::lock_guard<std::recursive_mutex> lock(mMutex);
        if (getTheme(theme->getName())) {
            qWarning("WARNING: Theme %s from %s is already known; the file is ignored.",
                qUtf8Printable(theme->getName()), qUtf8Printable(aPath));
            delete theme;
            return false;
        }
        mThemes.append(theme);
        first = !mCurrentTheme;
    }
    emit themesChanged();
    if (first) {
        activate(theme->getName(), QString());
    }
    return true;
}

QStringList ThemeManager::getThemes() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    QStringList names;
    for (const Theme* theme : mThemes) {
        names.append(theme->getName());
    }
    return names;
}

QString ThemeManager::getCurrentTheme() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mCurrentTheme ? mCurrentTheme->getName() : QString();
}

QStringList ThemeManager::getModes() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mCurrentTheme ? mCurrentTheme->getModeNames() : QStringList();
}

QString ThemeManager::getCurrentMode() const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    return mCurrentMode ? mCurrentMode->getName() : QString();
}

Theme* ThemeManager::getTheme(const QString& aName) const
{
    std::lock_guard<std::recursive_mutex> lock(mMutex);
    for (Theme* theme : mThemes) {
        if (theme->getName() == aName) {
            return theme;
        }
    }
    return nullptr;
}

bool ThemeManager::setCurrentTheme(const QString& aTheme)
{
    // Writing the current theme again (a QML binding re-evaluating) keeps the current mode.
    if (aTheme == getCurrentTheme() && !aTheme.isEmpty()) {
        return true;
    }
    if (mPolicy && !mPolicy->allowThemeChange(aTheme, QString())) {
        return false;
    }
    return activate(aTheme, QString());
}

bool ThemeManager::setCurrentMode(const QString& aMode)
{
    const QString theme = getCurrentTheme();
    // An empty name would mean "the first mode" to activate(); from outside it is a mistake.
    if (aMode.isEmpty()) {
        qWarning("WARNING: Theme %s has no mode %s.", qUtf8Printable(theme), qUtf8Printable(aMode));
        return false;
    }
    if (mPolicy && !mPolicy->allowThemeChange(theme, aMode)) {
        return false;
    }
    return activate(theme, aMode);
}

void ThemeManager::setThemePolicy(ThemePolicyBase* aPolicy)
{
    if (mPolicy == aPolicy) {
        return;
    }
    delete mPolicy.data();
    mPolicy = aPolicy;
    if (aPolicy) {
        aPolicy->setParent(this);
        aPolicy->initialize();
    }
}

bool ThemeManager::activate(const QString& aTheme, const QString& aMode)
{
    std::unique_lock<std::recursive_mutex> lock(mMutex);
    Theme* theme = getTheme(aTheme);
    if (!theme) {
        qWarning("WARNING: Theme %s does not exist.", qUtf8Printable(aTheme));
        return false;
    }
    ThemeMode* mode = nullptr;
    if (!aMode.isEmpty()) {
        mode = theme->getMode(aMode);
        if (!mode) {
            qWarning("WARNING: Theme %s has no mode %s.", qUtf8Printable(aTheme), qUtf8Printable(aMode));
            return false;
        }
    } else if (!theme->getModes().isEmpty()) {
        mode = theme->getModes().constFirst();
    }
    if (theme == mCurrentTheme && mode == mCurrentMode) {
        return true;
    }

    QStringList packages = mode ? mode->getPackages() : QStringList();
    packages.append(theme->getPackages());

    // New packages first, then the new order, then the old packages: at no point does a lookup
    // lose a value that both the old and the new theme have.
    ResourceManager& resources = ResourceManager::getInstance();
    QStringList loaded;
    for (const QString& package : qAsConst(packages)) {
        if (resources.loadResource(package)) {
            loaded.append(package);
        } else {
            qWarning("WARNING: Package %s of theme %s could not be loaded.", qUtf8Printable(package),
                qUtf8Printable(theme->getName()));
        }
    }
    resources.setSearchOrder(packages);
    for (const QString& package : qAsConst(mActivePackages)) {
        resources.unloadResource(package);
    }
    mActivePackages = loaded;

    // Notify by value, not by object: "day" of one theme and "day" of another are the same mode
    // to QML, and two themes may offer the same modes.
    const bool themeChanged = theme != mCurrentTheme;
    const bool modeListChanged = theme->getModeNames() != getModes();
    const bool modeChanged = (mode ? mode->getName() : QString()) != getCurrentMode();
    mCurrentTheme = theme;
    mCurrentMode = mode;
    lock.unlock();

    if (themeChanged) {
        emit currentThemeChanged();
    }
    if (modeListChanged) {
        emit modesChanged();
    }
    if (modeChanged) {
        emit currentModeChanged();
    }
    return true;
}

} // namespace Hmi::Core
