#pragma once

#include <QStringList>

namespace Hmi::Core::Tool {

/**
 * "hmicore resource compile|dump ...": prepares and inspects resource descriptions.
 *
 * - "compile FILE.xml -o FILE.dat [--base-path DIR]" writes the binary form of an XML description,
 *   ready to ship as a pre-built description (its content hash is empty).
 * - "dump FILE" prints every node of an XML or binary description, kind by kind and name by name,
 *   one block per node. The text is the same for an XML description and its compiled form, except
 *   where the binary form drops information: an image file's directory part, an invalid colour
 *   (written as opaque black) and the fraction of a font's point size.
 *   Given a resource package (.rcc), it prints the description inside that the resource manager
 *   would read, with file names relative to the package.
 *
 * \code
 * $ hmicore resource dump theme.xml
 * color "accent"
 *   color: 28,8c,dc,ff
 * \endcode
 */
int runResourceCommand(const QStringList& aArguments);

} // namespace Hmi::Core::Tool
