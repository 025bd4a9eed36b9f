#include "handles/HandleFont.h"

#include "handles/CssUtils.h"

#include <QFontInfo>

namespace Hmi::Core {

HandleFont::HandleFont(QObject* aParent)
    : QObject(aParent)
{ }

HandleFont::~HandleFont() = default;

QFont HandleFont::getFont() const
{
    return QFont();
}

QString HandleFont::getFontCss() const
{
    return CssUtils::getFontCss(getFont());
}

bool HandleFont::getFontExactMatch() const
{
    return QFontInfo(getFont()).exactMatch();
}

QString HandleFont::getFontInfoFamily() const
{
    return QFontInfo(getFont()).family();
}

int HandleFont::getFontInfoPixelSize() const
{
    return QFontInfo(getFont()).pixelSize();
}

int HandleFont::getFontInfoStyleHint() const
{
    return QFontInfo(getFont()).styleHint();
}

QString HandleFont::getFontInfoStyleName() const
{
    return QFontInfo(getFont()).styleName();
}

QString HandleFont::getFontLastResortFamily() const
{
    // Deprecated in Qt without a replacement; QML screens still ask for it when a family is
    // missing on the target.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return getFont().lastResortFamily();
    QT_WARNING_POP
}

int HandleFont::getFontStyleHint() const
{
    return getFont().styleHint();
}

QString HandleFont::getFontStyleName() const
{
    return getFont().styleName();
}

} // namespace Hmi::Core
