#pragma once

#include <QStringList>

namespace Hmi::Core::Tool {

/**
 * "hmicore language compile|dump ...": prepares and inspects language files.
 *
 * - "compile FILE.glx -o FILE.glx.dat" writes the binary form of an XML language file. A document
 *   that is not well-formed is refused: the library would read it up to the fault and quietly
 *   lose the rest.
 * - "dump FILE" prints the catalog and then every text, one line each, keys ascending. The form is
 *   chosen by suffix as the library does (".dat" is binary). An XML file and its compiled form
 *   print the same text.
 *
 * \code
 * $ hmicore language dump en_US.glx
 * language: "en_US"
 * ...
 * "STR_MENU_BACK": text "Back", pronunciation "back", usage speechrec=true tts=true visual=true
 * \endcode
 */
int runLanguageCommand(const QStringList& aArguments);

} // namespace Hmi::Core::Tool
