#pragma once

#include <QStringList>

namespace Hmi::Core::Tool {

/**
 * "hmicore theme list [--ini FILE] [--app NAME] [--placeholder NAME=VALUE]...": reads the
 * configuration as the library would at start-up and lists the themes its ThemesPath holds, in
 * the order start-up adds them. The first theme is the one an application starts in, each in
 * its first mode; both are marked "(default)". A package that is not in ThemesPath is marked
 * "(missing)". Exits 1 when the configuration cannot be read or no theme is found.
 *
 * \code
 * $ hmicore theme list --ini /etc/myhmi.ini
 * theme "Ocean" (default)
 *   file: /opt/myhmi/themes/ocean.xml
 *   packages: ocean.rcc
 *   mode "day" (default): ocean_day.rcc
 *   mode "night": ocean_night.rcc
 * \endcode
 */
int runThemeCommand(const QStringList& aArguments);

} // namespace Hmi::Core::Tool
