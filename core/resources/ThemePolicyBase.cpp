#include "resources/ThemePolicyBase.h"

#include "resources/ThemeManager.h"

namespace Hmi::Core {

ThemePolicyBase::ThemePolicyBase(QObject* aParent)
    : QObject(aParent)
{
}

ThemePolicyBase::~ThemePolicyBase() = default;

void ThemePolicyBase::initialize() { }

bool ThemePolicyBase::allowThemeChange(const QString& /*aTheme*/, const QString& /*aMode*/)
{
    return true;
}

bool ThemePolicyBase::requestTheme(const QString& aTheme)
{
    return ThemeManager::getInstance().activate(aTheme, QString());
}

bool ThemePolicyBase::requestMode(const QString& aMode)
{
    ThemeManager& themes = ThemeManager::getInstance();
    return themes.activate(themes.getCurrentTheme(), aMode);
}

} // namespace Hmi::Core
