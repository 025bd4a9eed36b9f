#include "handles/CssUtils.h"

#include <QColor>
#include <QFont>
#include <QStringList>
#include <QtDebug>

namespace Hmi::Core {

QString CssUtils::getColorCss(const QColor& aColor)
{
    // The alpha stays 0..255 rather than a CSS fraction: the rich-text engine reads it that way.
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(aColor.red())
        .arg(aColor.green())
        .arg(aColor.blue())
        .arg(aColor.alpha());
}

QString CssUtils::getFontCss(const QFont& aFont)
{
    QString size;
    if (aFont.pixelSize() > 0) {
        size = QString::number(aFont.pixelSize()) + QStringLiteral("px");
    } else if (aFont.pointSizeF() > 0) {
        size = QString::number(aFont.pointSizeF()) + QStringLiteral("pt");
    } else {
        qCritical("ERROR: A valid font size (in pixels or points) was not found.");
        return QString();
    }

    QStringList parts;
    if (aFont.italic()) {
        parts << QStringLiteral("italic");
    }
    if (aFont.weight() == QFont::Bold) {
        parts << QStringLiteral("bold");
    } else if (aFont.weight() != QFont::Normal) {
        parts << QString::number(aFont.weight());
    }
    parts << size;

    // The separator before the family is written even without a family; callers compare
    // against texts that carry it.
    QString css = parts.join(QLatin1Char(' ')) + QLatin1Char(' ');
    if (!aFont.family().isEmpty()) {
        css += QLatin1Char('"') + aFont.family() + QLatin1Char('"');
    }
    return css;
}

} // namespace Hmi::Core
