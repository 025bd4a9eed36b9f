#pragma once

#include "hmicore_export.h"

#include <QFont>
#include <QObject>
#include <QString>

namespace Hmi::Core {

/**
 * Read-only font for QML. The plain handle holds the application's default font; the mutable
 * and resource-backed handles derive from it and override getFont().
 *
 * The invokables report what the font database actually picked for the requested font, which
 * helps to find out why a screen shows another family than the theme asks for.
 */
class HMICORE_EXPORT HandleFont : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QFont font READ getFont NOTIFY fontChanged)
    Q_PROPERTY(QString fontCss READ getFontCss NOTIFY fontChanged)

public:
    explicit HandleFont(QObject* aParent = nullptr);
    ~HandleFont() override;
    Q_DISABLE_COPY(HandleFont)

    virtual QFont getFont() const;
    /// The CSS text of getFont(); derived handles may cache it.
    virtual QString getFontCss() const;

    /// True when the matched font is exactly the requested one.
    Q_INVOKABLE bool getFontExactMatch() const;
    Q_INVOKABLE QString getFontInfoFamily() const;
    Q_INVOKABLE int getFontInfoPixelSize() const;
    /// A QFont::StyleHint value.
    Q_INVOKABLE int getFontInfoStyleHint() const;
    Q_INVOKABLE QString getFontInfoStyleName() const;
    Q_INVOKABLE QString getFontLastResortFamily() const;
    /// A QFont::StyleHint value, as requested rather than matched.
    Q_INVOKABLE int getFontStyleHint() const;
    Q_INVOKABLE QString getFontStyleName() const;

signals:
    void fontChanged();
};

} // namespace Hmi::Core
