#include "handles/CssUtils.h"

#include <QColor>
#include <QFont>
#include <QtDebug>

#include <cstring>

namespace Hmi::Core {

namespace {

// Decimal digits of a non-negative number, written at aOut; returns the end.
char* writeDecimal(char* aOut, int aValue)
{
    char digits[10];
    int count = 0;
    unsigned value = unsigned(aValue);
    do {
        digits[count++] = char('0' + value % 10);
        value /= 10;
    } while (value != 0);
    while (count > 0) {
        *aOut++ = digits[--count];
    }
    return aOut;
}

} // namespace

QString CssUtils::getColorCss(const QColor& aColor)
{
    // Every colour node of a theme gets one of these at load, so it is written by hand:
    // QString::arg() made it the largest single cost of loading a binary resource file.
    // The alpha stays 0..255 rather than a CSS fraction: the rich-text engine reads it that way.
    int components[4];
    aColor.getRgb(&components[0], &components[1], &components[2], &components[3]);
    // "rgba(", then four numbers of up to ten digits, each followed by ',' or ')'.
    char text[5 + 4 * 11];
    std::memcpy(text, "rgba(", 5);
    char* end = text + 5;
    for (int i = 0; i < 4; ++i) {
        end = writeDecimal(end, components[i]);
        *end++ = i < 3 ? ',' : ')';
    }
    return QString::fromLatin1(text, int(end - text));
}

QString CssUtils::getFontCss(const QFont& aFont)
{
    const bool pixels = aFont.pixelSize() > 0;
    if (!pixels && !(aFont.pointSizeF() > 0)) {
        qCritical("ERROR: A valid font size (in pixels or points) was not found.");
        return QString();
    }

    const QString family = aFont.family();
    QString css;
    css.reserve(32 + family.size());
    if (aFont.italic()) {
        css += QLatin1String("italic ");
    }
    if (aFont.weight() == QFont::Bold) {
        css += QLatin1String("bold ");
    } else if (aFont.weight() != QFont::Normal) {
        css += QString::number(aFont.weight()) + QLatin1Char(' ');
    }
    if (pixels) {
        css += QString::number(aFont.pixelSize()) + QLatin1String("px");
    } else {
        css += QString::number(aFont.pointSizeF()) + QLatin1String("pt");
    }
    // The separator before the family is written even without a family; callers compare
    // against texts that carry it.
    css += QLatin1Char(' ');
    if (!family.isEmpty()) {
        css += QLatin1Char('"') + family + QLatin1Char('"');
    }
    return css;
}

} // namespace Hmi::Core
