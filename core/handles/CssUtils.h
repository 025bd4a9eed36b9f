#pragma once

#include "hmicore_export.h"

#include <QString>

class QColor;
class QFont;

namespace Hmi::Core {

/**
 * Turns colours and fonts into the CSS text that rich-text labels use.
 *
 * \code
 * label.text = "<span style='color:" + handle.colorCss + "'>" + text + "</span>";
 * \endcode
 */
class HMICORE_EXPORT CssUtils final
{
public:
    CssUtils() = delete;

    /// "rgba(r,g,b,a)" with every component an integer from 0 to 255, alpha included.
    static QString getColorCss(const QColor& aColor);

    /// The font shorthand: ["italic"] [weight] size ["family"]. The size is written in pixels
    /// when the font has a pixel size, else in points. A font without any size gives an empty
    /// text and an error in the log.
    static QString getFontCss(const QFont& aFont);
};

} // namespace Hmi::Core
