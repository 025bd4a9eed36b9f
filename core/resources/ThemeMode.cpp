#include "resources/ThemeMode.h"

namespace Hmi::Core {

ThemeMode::ThemeMode(const QString& aName, const QStringList& aPackages, QObject* aParent)
    : QObject(aParent)
    , mName(aName)
    , mPackages(aPackages)
{
}

ThemeMode::~ThemeMode() = default;

} // namespace Hmi::Core
