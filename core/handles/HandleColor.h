#pragma once

#include "hmicore_export.h"

#include <QColor>
#include <QObject>
#include <QString>

namespace Hmi::Core {

/**
 * Read-only colour for QML. The plain handle always holds the transparent colour; the mutable
 * and resource-backed handles derive from it and override getColor().
 *
 * \code
 * Rectangle { color: backgroundHandle.color }
 * \endcode
 */
class HMICORE_EXPORT HandleColor : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ getColor NOTIFY colorChanged)
    Q_PROPERTY(QString colorCss READ getColorCss NOTIFY colorChanged)

public:
    explicit HandleColor(QObject* aParent = nullptr);
    ~HandleColor() override;
    Q_DISABLE_COPY(HandleColor)

    virtual QColor getColor() const;
    /// The CSS text of getColor(); derived handles may cache it.
    virtual QString getColorCss() const;

signals:
    void colorChanged();
};

} // namespace Hmi::Core
