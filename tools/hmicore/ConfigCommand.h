#pragma once

#include <QStringList>

namespace Hmi::Core::Tool {

/**
 * "hmicore config [--ini FILE] [--app NAME] [--placeholder NAME=VALUE]...": reads the configuration
 * as the library would at start-up and prints every HmiCore key, its value and whether the value
 * came from the file or is a default.
 *
 * \code
 * $ hmicore config --ini /etc/myhmi.ini --app myhmi
 * HmiCore/AlphaChannelEnabled        = false (default)
 * HmiCore/ThemesPath                 = /opt/myhmi/themes (file)
 * \endcode
 */
int runConfigCommand(const QStringList& aArguments);

} // namespace Hmi::Core::Tool
